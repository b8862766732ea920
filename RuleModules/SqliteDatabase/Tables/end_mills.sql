-- Shank end mills: diameters of the preferred series and cutting lengths of the standard and
-- the long version as in DIN 844. Inch sizes have the usual stub and regular lengths. Lengths in mm.

CREATE TABLE end_mills
(
    name                TEXT NOT NULL PRIMARY KEY,
    series              TEXT NOT NULL CHECK (series IN ('metric', 'inch')),
    diameter            REAL NOT NULL CHECK (diameter > 0),
    cutting_length      REAL NOT NULL CHECK (cutting_length > diameter),
    cutting_length_long REAL CHECK (cutting_length_long > cutting_length)
);

INSERT INTO end_mills (name, series, diameter, cutting_length, cutting_length_long) VALUES
    ('1 mm', 'metric', 1, 3, NULL),
    ('1.5 mm', 'metric', 1.5, 3, NULL),
    ('2 mm', 'metric', 2, 7, 10),
    ('2.5 mm', 'metric', 2.5, 8, 12),
    ('3 mm', 'metric', 3, 8, 12),
    ('4 mm', 'metric', 4, 11, 19),
    ('5 mm', 'metric', 5, 13, 24),
    ('6 mm', 'metric', 6, 13, 24),
    ('8 mm', 'metric', 8, 19, 38),
    ('10 mm', 'metric', 10, 22, 45),
    ('12 mm', 'metric', 12, 26, 53),
    ('14 mm', 'metric', 14, 26, 53),
    ('16 mm', 'metric', 16, 32, 63),
    ('18 mm', 'metric', 18, 32, 63),
    ('20 mm', 'metric', 20, 38, 75),
    ('25 mm', 'metric', 25, 45, 90),
    ('32 mm', 'metric', 32, 53, 106),
    ('1/16 in', 'inch', 25.4 * 1 / 16, 25.4 * 0.1875, NULL),
    ('1/8 in', 'inch', 25.4 * 1 / 8, 25.4 * 0.25, 25.4 * 0.5),
    ('3/16 in', 'inch', 25.4 * 3 / 16, 25.4 * 0.3125, 25.4 * 0.625),
    ('1/4 in', 'inch', 25.4 * 1 / 4, 25.4 * 0.375, 25.4 * 0.75),
    ('5/16 in', 'inch', 25.4 * 5 / 16, 25.4 * 0.5, 25.4 * 0.8125),
    ('3/8 in', 'inch', 25.4 * 3 / 8, 25.4 * 0.5625, 25.4 * 1),
    ('1/2 in', 'inch', 25.4 * 1 / 2, 25.4 * 0.625, 25.4 * 1.25),
    ('5/8 in', 'inch', 25.4 * 5 / 8, 25.4 * 0.75, 25.4 * 1.625),
    ('3/4 in', 'inch', 25.4 * 3 / 4, 25.4 * 0.875, 25.4 * 1.625),
    ('1 in', 'inch', 25.4 * 1 / 1, 25.4 * 1.125, 25.4 * 2);
