-- Sheet thicknesses in mm. Gauges are numbered from thick to thin: the manufacturers' standard
-- gauge for steel (MSG), the galvanized sheet gauge (GSG), the United States standard gauge
-- as used for stainless steel (USG), and the American wire gauge as used for aluminium (AWG).
-- Metric thicknesses are those that sheet is usually rolled to.

CREATE TABLE gauges
(
    name      TEXT NOT NULL PRIMARY KEY,
    series    TEXT NOT NULL CHECK (series IN ('metric', 'steel', 'galvanized', 'stainless', 'aluminium')),
    gauge     INTEGER CHECK (gauge > 0),
    thickness REAL NOT NULL CHECK (thickness > 0)
);

INSERT INTO gauges (name, series, thickness) VALUES
    ('0.5 mm', 'metric', 0.5),
    ('0.6 mm', 'metric', 0.6),
    ('0.7 mm', 'metric', 0.7),
    ('0.8 mm', 'metric', 0.8),
    ('0.9 mm', 'metric', 0.9),
    ('1 mm', 'metric', 1),
    ('1.2 mm', 'metric', 1.2),
    ('1.25 mm', 'metric', 1.25),
    ('1.5 mm', 'metric', 1.5),
    ('1.75 mm', 'metric', 1.75),
    ('2 mm', 'metric', 2),
    ('2.5 mm', 'metric', 2.5),
    ('3 mm', 'metric', 3),
    ('4 mm', 'metric', 4),
    ('5 mm', 'metric', 5),
    ('6 mm', 'metric', 6),
    ('8 mm', 'metric', 8),
    ('10 mm', 'metric', 10);

INSERT INTO gauges (name, series, gauge, thickness) VALUES
    ('MSG 3', 'steel', 3, 25.4 * 0.2391),
    ('MSG 4', 'steel', 4, 25.4 * 0.2242),
    ('MSG 5', 'steel', 5, 25.4 * 0.2092),
    ('MSG 6', 'steel', 6, 25.4 * 0.1943),
    ('MSG 7', 'steel', 7, 25.4 * 0.1793),
    ('MSG 8', 'steel', 8, 25.4 * 0.1644),
    ('MSG 9', 'steel', 9, 25.4 * 0.1495),
    ('MSG 10', 'steel', 10, 25.4 * 0.1345),
    ('MSG 11', 'steel', 11, 25.4 * 0.1196),
    ('MSG 12', 'steel', 12, 25.4 * 0.1046),
    ('MSG 13', 'steel', 13, 25.4 * 0.0897),
    ('MSG 14', 'steel', 14, 25.4 * 0.0747),
    ('MSG 15', 'steel', 15, 25.4 * 0.0673),
    ('MSG 16', 'steel', 16, 25.4 * 0.0598),
    ('MSG 17', 'steel', 17, 25.4 * 0.0538),
    ('MSG 18', 'steel', 18, 25.4 * 0.0478),
    ('MSG 19', 'steel', 19, 25.4 * 0.0418),
    ('MSG 20', 'steel', 20, 25.4 * 0.0359),
    ('MSG 21', 'steel', 21, 25.4 * 0.0329),
    ('MSG 22', 'steel', 22, 25.4 * 0.0299),
    ('MSG 23', 'steel', 23, 25.4 * 0.0269),
    ('MSG 24', 'steel', 24, 25.4 * 0.0239),
    ('MSG 25', 'steel', 25, 25.4 * 0.0209),
    ('MSG 26', 'steel', 26, 25.4 * 0.0179),
    ('MSG 27', 'steel', 27, 25.4 * 0.0164),
    ('MSG 28', 'steel', 28, 25.4 * 0.0149),
    ('MSG 29', 'steel', 29, 25.4 * 0.0135),
    ('MSG 30', 'steel', 30, 25.4 * 0.0120);

INSERT INTO gauges (name, series, gauge, thickness) VALUES
    ('GSG 10', 'galvanized', 10, 25.4 * 0.1382),
    ('GSG 12', 'galvanized', 12, 25.4 * 0.1084),
    ('GSG 14', 'galvanized', 14, 25.4 * 0.0785),
    ('GSG 16', 'galvanized', 16, 25.4 * 0.0635),
    ('GSG 18', 'galvanized', 18, 25.4 * 0.0516),
    ('GSG 20', 'galvanized', 20, 25.4 * 0.0396),
    ('GSG 22', 'galvanized', 22, 25.4 * 0.0336),
    ('GSG 24', 'galvanized', 24, 25.4 * 0.0276),
    ('GSG 26', 'galvanized', 26, 25.4 * 0.0217),
    ('GSG 28', 'galvanized', 28, 25.4 * 0.0187),
    ('GSG 30', 'galvanized', 30, 25.4 * 0.0157);

INSERT INTO gauges (name, series, gauge, thickness) VALUES
    ('USG 10', 'stainless', 10, 25.4 * 0.1406),
    ('USG 12', 'stainless', 12, 25.4 * 0.1094),
    ('USG 14', 'stainless', 14, 25.4 * 0.0781),
    ('USG 16', 'stainless', 16, 25.4 * 0.0625),
    ('USG 18', 'stainless', 18, 25.4 * 0.0500),
    ('USG 20', 'stainless', 20, 25.4 * 0.0375),
    ('USG 22', 'stainless', 22, 25.4 * 0.0312),
    ('USG 24', 'stainless', 24, 25.4 * 0.0250),
    ('USG 26', 'stainless', 26, 25.4 * 0.0187),
    ('USG 28', 'stainless', 28, 25.4 * 0.0156),
    ('USG 30', 'stainless', 30, 25.4 * 0.0125);

INSERT INTO gauges (name, series, gauge, thickness) VALUES
    ('AWG 10', 'aluminium', 10, 25.4 * 0.1019),
    ('AWG 12', 'aluminium', 12, 25.4 * 0.0808),
    ('AWG 14', 'aluminium', 14, 25.4 * 0.0641),
    ('AWG 16', 'aluminium', 16, 25.4 * 0.0508),
    ('AWG 18', 'aluminium', 18, 25.4 * 0.0403),
    ('AWG 20', 'aluminium', 20, 25.4 * 0.0320),
    ('AWG 22', 'aluminium', 22, 25.4 * 0.0253),
    ('AWG 24', 'aluminium', 24, 25.4 * 0.0201),
    ('AWG 26', 'aluminium', 26, 25.4 * 0.0159),
    ('AWG 28', 'aluminium', 28, 25.4 * 0.0126),
    ('AWG 30', 'aluminium', 30, 25.4 * 0.0100);
