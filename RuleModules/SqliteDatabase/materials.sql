-- Materials of the rule modules. Typical values, for comparing designs; a supplier's data
-- sheet goes before them. Every column beyond name and material_group is a property that
-- rules can ask for by the column's name; NULL where it has no meaning.
--
--   density                 g/cm3
--   tensile_strength        MPa
--   wall_thickness_min/max  mm, recommended wall of a milled or moulded part
--   min_bend_radius_factor  smallest inside bend radius divided by the sheet's thickness
--   k_factor                place of the neutral line in a bend
--   shrinkage_min/max       %, mould shrinkage

CREATE TABLE materials
(
    name                   TEXT NOT NULL PRIMARY KEY,
    material_group         TEXT NOT NULL CHECK (material_group IN ('metal', 'sheet', 'plastic')),
    density                REAL NOT NULL CHECK (density > 0),
    tensile_strength       REAL,
    wall_thickness_min     REAL,
    wall_thickness_max     REAL,
    min_bend_radius_factor REAL,
    k_factor               REAL,
    shrinkage_min          REAL,
    shrinkage_max          REAL,
    CHECK (wall_thickness_max >= wall_thickness_min),
    CHECK (shrinkage_max >= shrinkage_min)
);

-- Bar and plate for machining
INSERT INTO materials (name, material_group, density, tensile_strength, wall_thickness_min) VALUES
    ('EN AW-2011-T3',   'metal', 2.83,  370, 0.8),
    ('EN AW-2024-T3',   'metal', 2.78,  470, 0.8),
    ('EN AW-5083-H111', 'metal', 2.66,  290, 0.8),
    ('EN AW-6060-T66',  'metal', 2.70,  215, 0.8),
    ('EN AW-6061-T6',   'metal', 2.70,  310, 0.8),
    ('EN AW-6082-T6',   'metal', 2.70,  310, 0.8),
    ('EN AW-7075-T6',   'metal', 2.81,  560, 0.8),
    ('11SMn30',         'metal', 7.85,  460, 0.8),
    ('S235JR',          'metal', 7.85,  400, 0.8),
    ('S355J2',          'metal', 7.85,  520, 0.8),
    ('C45',             'metal', 7.85,  620, 0.8),
    ('16MnCr5',         'metal', 7.85,  800, 0.8),
    ('42CrMo4',         'metal', 7.85, 1000, 0.8),
    ('X8CrNiS18-9',     'metal', 7.90,  600, 1.0),
    ('X5CrNi18-10',     'metal', 7.90,  600, 1.0),
    ('X2CrNiMo17-12-2', 'metal', 8.00,  570, 1.0),
    ('X17CrNi16-2',     'metal', 7.70,  850, 1.0),
    ('EN-GJL-250',      'metal', 7.20,  250, 3.0),
    ('CuZn39Pb3',       'metal', 8.47,  430, 0.6),
    ('CuSn8',           'metal', 8.80,  450, 0.8),
    ('Cu-ETP',          'metal', 8.94,  250, 0.8),
    ('Ti-6Al-4V',       'metal', 4.43,  950, 1.0);

-- Sheet for cutting and bending
INSERT INTO materials (name, material_group, density, tensile_strength, min_bend_radius_factor, k_factor) VALUES
    ('DC01',                  'sheet', 7.85, 330, 0.6, 0.40),
    ('DC04',                  'sheet', 7.85, 310, 0.5, 0.40),
    ('DX51D+Z',               'sheet', 7.85, 380, 1.0, 0.42),
    ('S235JR sheet',          'sheet', 7.85, 400, 1.0, 0.42),
    ('S355MC',                'sheet', 7.85, 490, 0.8, 0.43),
    ('X5CrNi18-10 sheet',     'sheet', 7.90, 600, 1.0, 0.45),
    ('X2CrNiMo17-12-2 sheet', 'sheet', 8.00, 570, 1.0, 0.45),
    ('EN AW-1050A-H14',       'sheet', 2.71, 115, 0.5, 0.38),
    ('EN AW-5005-H34',        'sheet', 2.70, 160, 1.0, 0.40),
    ('EN AW-5754-H22',        'sheet', 2.67, 240, 1.0, 0.42),
    ('EN AW-6082-T6 sheet',   'sheet', 2.70, 310, 3.0, 0.44),
    ('Cu-ETP sheet',          'sheet', 8.94, 250, 0.5, 0.38),
    ('CuZn37 sheet',          'sheet', 8.44, 350, 0.5, 0.40);

-- Mouldable plastics
INSERT INTO materials
    (name, material_group, density, tensile_strength, wall_thickness_min, wall_thickness_max, shrinkage_min,
     shrinkage_max) VALUES
    ('ABS',       'plastic', 1.05,  45, 1.1, 3.6, 0.4, 0.7),
    ('PC',        'plastic', 1.20,  65, 1.0, 3.8, 0.5, 0.7),
    ('PC+ABS',    'plastic', 1.13,  55, 1.2, 3.5, 0.5, 0.7),
    ('PA6',       'plastic', 1.13,  80, 0.8, 3.0, 0.8, 1.5),
    ('PA66',      'plastic', 1.14,  83, 0.8, 3.0, 1.0, 2.0),
    ('PA66-GF30', 'plastic', 1.36, 185, 0.8, 3.0, 0.3, 0.9),
    ('POM',       'plastic', 1.41,  65, 0.8, 3.0, 1.8, 2.2),
    ('PP',        'plastic', 0.91,  33, 0.8, 3.8, 1.0, 2.5),
    ('PE-HD',     'plastic', 0.95,  28, 0.8, 5.0, 1.5, 4.0),
    ('PE-LD',     'plastic', 0.92,  12, 0.8, 6.0, 1.5, 3.5),
    ('PS',        'plastic', 1.05,  45, 0.9, 3.8, 0.4, 0.7),
    ('SAN',       'plastic', 1.08,  72, 0.9, 3.8, 0.4, 0.7),
    ('PMMA',      'plastic', 1.18,  70, 0.7, 3.8, 0.3, 0.7),
    ('PBT',       'plastic', 1.31,  58, 0.8, 3.2, 1.5, 2.0),
    ('PBT-GF30',  'plastic', 1.53, 135, 0.8, 3.2, 0.3, 1.0),
    ('PPS-GF40',  'plastic', 1.65, 180, 0.5, 4.5, 0.2, 0.6),
    ('PEEK',      'plastic', 1.30, 100, 0.8, 5.0, 1.0, 2.0),
    ('TPU',       'plastic', 1.21,  45, 0.7, 6.0, 0.5, 2.0);
