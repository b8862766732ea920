-- Standard tolerance grades for sizes up to 500 mm, in thousandths of a millimeter, as in
-- ISO 286-1. The column to_<size> holds for sizes up to that many millimeters and beyond the
-- column before it.

CREATE TABLE tolerance_grades
(
    name   TEXT NOT NULL PRIMARY KEY,
    series TEXT NOT NULL DEFAULT 'standard' CHECK (series = 'standard'),
    grade  INTEGER NOT NULL CHECK (grade BETWEEN 1 AND 18),
    to_3   REAL NOT NULL,
    to_6   REAL NOT NULL,
    to_10  REAL NOT NULL,
    to_18  REAL NOT NULL,
    to_30  REAL NOT NULL,
    to_50  REAL NOT NULL,
    to_80  REAL NOT NULL,
    to_120 REAL NOT NULL,
    to_180 REAL NOT NULL,
    to_250 REAL NOT NULL,
    to_315 REAL NOT NULL,
    to_400 REAL NOT NULL,
    to_500 REAL NOT NULL
);

INSERT INTO tolerance_grades
    (name, grade, to_3, to_6, to_10, to_18, to_30, to_50, to_80, to_120, to_180,
     to_250, to_315, to_400, to_500) VALUES
    ('IT1',  1, 0.8, 1, 1, 1.2, 1.5, 1.5, 2, 2.5, 3.5, 4.5, 6, 7, 8),
    ('IT2',  2, 1.2, 1.5, 1.5, 2, 2.5, 2.5, 3, 4, 5, 7, 8, 9, 10),
    ('IT3',  3, 2, 2.5, 2.5, 3, 4, 4, 5, 6, 8, 10, 12, 13, 15),
    ('IT4',  4, 3, 4, 4, 5, 6, 7, 8, 10, 12, 14, 16, 18, 20),
    ('IT5',  5, 4, 5, 6, 8, 9, 11, 13, 15, 18, 20, 23, 25, 27),
    ('IT6',  6, 6, 8, 9, 11, 13, 16, 19, 22, 25, 29, 32, 36, 40),
    ('IT7',  7, 10, 12, 15, 18, 21, 25, 30, 35, 40, 46, 52, 57, 63),
    ('IT8',  8, 14, 18, 22, 27, 33, 39, 46, 54, 63, 72, 81, 89, 97),
    ('IT9',  9, 25, 30, 36, 43, 52, 62, 74, 87, 100, 115, 130, 140, 155),
    ('IT10', 10, 40, 48, 58, 70, 84, 100, 120, 140, 160, 185, 210, 230, 250),
    ('IT11', 11, 60, 75, 90, 110, 130, 160, 190, 220, 250, 290, 320, 360, 400),
    ('IT12', 12, 100, 120, 150, 180, 210, 250, 300, 350, 400, 460, 520, 570, 630),
    ('IT13', 13, 140, 180, 220, 270, 330, 390, 460, 540, 630, 720, 810, 890, 970),
    ('IT14', 14, 250, 300, 360, 430, 520, 620, 740, 870, 1000, 1150, 1300, 1400, 1550),
    ('IT15', 15, 400, 480, 580, 700, 840, 1000, 1200, 1400, 1600, 1850, 2100, 2300, 2500),
    ('IT16', 16, 600, 750, 900, 1100, 1300, 1600, 1900, 2200, 2500, 2900, 3200, 3600, 4000),
    ('IT17', 17, 1000, 1200, 1500, 1800, 2100, 2500, 3000, 3500, 4000, 4600, 5200, 5700, 6300),
    ('IT18', 18, 1400, 1800, 2200, 2700, 3300, 3900, 4600, 5400, 6300, 7200, 8100, 8900, 9700);
