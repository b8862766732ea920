-- Materials of the rule modules. Typical values out of common knowledge and suppliers' data
-- sheets, for comparing designs; the data sheet of the material at hand goes before them.
-- Every column beyond name and material_group is a property that rules can ask for by the
-- column's name; NULL where it has no meaning.
--
--   density                 g/cm3
--   tensile_strength        MPa
--   wall_thickness_min/max  mm, recommended wall of a milled, moulded, cast or printed part
--   pocket_depth_ratio      depth of a pocket that is milled well, divided by its width
--   drill_depth_ratio       depth of a hole that is drilled without pecking, divided by its diameter
--   min_bend_radius_factor  smallest inside bend radius divided by the sheet's thickness
--   k_factor                place of the neutral line in a bend
--   bend_ratio              smallest centre line radius of a bent tube divided by its diameter
--   shrinkage_min/max       %, of a moulded part or of a casting against its pattern
--   draft_min               degrees, draft that a wall of medium height needs
--   overhang_angle          degrees from the horizontal that are built without support
--   hole_diameter_min       mm, smallest hole that is cast or printed well
--   weld_thickness_min      mm, thinnest sheet that is arc welded without special measures

CREATE TABLE materials
(
    name                   TEXT NOT NULL PRIMARY KEY,
    material_group         TEXT NOT NULL CHECK (material_group IN
                               ('metal', 'sheet', 'plastic', 'cast', 'diecast', 'additive', 'weld', 'tube',
                               'invest')),
    density                REAL NOT NULL CHECK (density > 0),
    tensile_strength       REAL NOT NULL CHECK (tensile_strength > 0),
    wall_thickness_min     REAL CHECK (wall_thickness_min > 0),
    wall_thickness_max     REAL,
    pocket_depth_ratio     REAL CHECK (pocket_depth_ratio > 0),
    drill_depth_ratio      REAL CHECK (drill_depth_ratio > 0),
    min_bend_radius_factor REAL CHECK (min_bend_radius_factor > 0),
    k_factor               REAL CHECK (k_factor BETWEEN 0.2 AND 0.5),
    bend_ratio             REAL CHECK (bend_ratio >= 1),
    shrinkage_min          REAL CHECK (shrinkage_min >= 0),
    shrinkage_max          REAL,
    draft_min              REAL CHECK (draft_min BETWEEN 0 AND 10),
    overhang_angle         REAL CHECK (overhang_angle BETWEEN 0 AND 90),
    hole_diameter_min      REAL CHECK (hole_diameter_min > 0),
    weld_thickness_min     REAL CHECK (weld_thickness_min > 0),
    CHECK (wall_thickness_max >= wall_thickness_min),
    CHECK (shrinkage_max >= shrinkage_min)
);

-- Bar and plate for machining
INSERT INTO materials (name, material_group, density, tensile_strength, wall_thickness_min, pocket_depth_ratio,
                       drill_depth_ratio) VALUES
    ('EN AW-2011-T3',   'metal', 2.83,  370, 0.8, 4, 6),
    ('EN AW-2024-T3',   'metal', 2.78,  470, 0.8, 4, 6),
    ('EN AW-5083-H111', 'metal', 2.66,  290, 0.8, 4, 6),
    ('EN AW-6060-T66',  'metal', 2.70,  215, 0.8, 4, 6),
    ('EN AW-6061-T6',   'metal', 2.70,  310, 0.8, 4, 6),
    ('EN AW-6082-T6',   'metal', 2.70,  310, 0.8, 4, 6),
    ('EN AW-7075-T6',   'metal', 2.81,  560, 0.8, 4, 6),
    ('11SMn30',         'metal', 7.85,  460, 0.8, 4, 6),
    ('S235JR',          'metal', 7.85,  400, 0.8, 3.5, 5),
    ('S355J2',          'metal', 7.85,  520, 0.8, 3.5, 5),
    ('C45',             'metal', 7.85,  620, 0.8, 3.5, 5),
    ('16MnCr5',         'metal', 7.85,  800, 0.8, 3.5, 5),
    ('42CrMo4',         'metal', 7.85, 1000, 0.8, 3, 5),
    ('X8CrNiS18-9',     'metal', 7.90,  600, 1.0, 3, 4),
    ('X5CrNi18-10',     'metal', 7.90,  600, 1.0, 3, 4),
    ('X2CrNiMo17-12-2', 'metal', 8.00,  570, 1.0, 3, 4),
    ('X17CrNi16-2',     'metal', 7.70,  850, 1.0, 3, 4),
    ('EN-GJL-250',      'metal', 7.20,  250, 3.0, 3.5, 5),
    ('CuZn39Pb3',       'metal', 8.47,  430, 0.6, 4, 5),
    ('CuSn8',           'metal', 8.80,  450, 0.8, 4, 5),
    ('Cu-ETP',          'metal', 8.94,  250, 0.8, 3.5, 4),
    ('Ti-6Al-4V',       'metal', 4.43,  950, 1.0, 2.5, 3);

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

-- Alloys for casting in sand
INSERT INTO materials (name, material_group, density, tensile_strength, wall_thickness_min, wall_thickness_max,
                       shrinkage_min, shrinkage_max, draft_min, hole_diameter_min) VALUES
    ('EN-GJL-200',       'cast', 7.15, 200, 4, 50, 0.8, 1.2, 1, 10),
    ('EN-GJL-300',       'cast', 7.25, 300, 5, 60, 0.8, 1.2, 1, 10),
    ('EN-GJS-400-15',    'cast', 7.1, 400, 5, 80, 0.5, 1.2, 1, 10),
    ('EN-GJS-500-7',     'cast', 7.1, 500, 5, 80, 0.5, 1.2, 1, 10),
    ('EN-GJMW-400-5',    'cast', 7.4, 400, 3, 12, 1, 2, 1, 8),
    ('GE240',            'cast', 7.8, 450, 6, 100, 1.6, 2.4, 1.5, 15),
    ('G17CrMo5-5',       'cast', 7.8, 490, 6, 100, 1.6, 2.4, 1.5, 15),
    ('GX5CrNi19-10',     'cast', 7.9, 440, 5, 60, 2, 2.6, 1.5, 12),
    ('GX5CrNiMo19-11-2', 'cast', 7.95, 440, 5, 60, 2, 2.6, 1.5, 12),
    ('EN AC-42100-T6',   'cast', 2.68, 230, 3.5, 40, 1, 1.3, 1, 8),
    ('EN AC-43000',      'cast', 2.68, 150, 3.5, 40, 1, 1.3, 1, 8),
    ('EN AC-44200',      'cast', 2.65, 150, 3, 40, 0.9, 1.2, 1, 8),
    ('CuSn10-C',         'cast', 8.7, 250, 3, 40, 1.3, 1.8, 1, 8),
    ('CuAl10Fe5Ni5-C',   'cast', 7.6, 600, 4, 60, 1.8, 2.3, 1.5, 10);

-- Alloys for pressure die casting
INSERT INTO materials (name, material_group, density, tensile_strength, wall_thickness_min, wall_thickness_max,
                       shrinkage_min, shrinkage_max, draft_min, hole_diameter_min) VALUES
    ('EN AC-43400',   'diecast', 2.65, 240, 1.2, 5, 0.4, 0.6, 1, 2.5),
    ('EN AC-44300',   'diecast', 2.65, 240, 1, 5, 0.4, 0.6, 1, 2.5),
    ('EN AC-46000',   'diecast', 2.75, 240, 1.2, 5, 0.4, 0.6, 1, 2.5),
    ('EN AC-46100',   'diecast', 2.75, 240, 1.2, 5, 0.4, 0.6, 1, 2.5),
    ('EN AC-47100',   'diecast', 2.65, 240, 1, 5, 0.4, 0.6, 1, 2.5),
    ('EN-MCMgAl9Zn1', 'diecast', 1.81, 200, 1, 4, 0.4, 0.6, 0.7, 2),
    ('EN-MCMgAl6Mn',  'diecast', 1.8, 190, 1.2, 4, 0.4, 0.6, 0.7, 2),
    ('EN-MCMgAl5Mn',  'diecast', 1.78, 180, 1.2, 4, 0.4, 0.6, 0.7, 2),
    ('ZP0400',        'diecast', 6.7, 280, 0.6, 3, 0.3, 0.5, 0.5, 1),
    ('ZP0410',        'diecast', 6.7, 330, 0.6, 3, 0.3, 0.5, 0.5, 1),
    ('ZP0810',        'diecast', 6.3, 370, 0.8, 3, 0.3, 0.5, 0.5, 1.2),
    ('CuZn39Pb1Al-C', 'diecast', 8.4, 350, 1.5, 5, 0.6, 0.9, 1.5, 4);

-- Powders, filaments and resins for additive manufacturing
INSERT INTO materials (name, material_group, density, tensile_strength, wall_thickness_min, overhang_angle, hole_diameter_min) VALUES
    ('PA11 powder',             'additive', 1.03, 48, 0.8, 0, 1.5),
    ('PA12 powder',             'additive', 1.01, 48, 0.8, 0, 1.5),
    ('PA12-GF powder',          'additive', 1.22, 51, 1, 0, 1.5),
    ('TPU powder',              'additive', 1.1, 18, 1.2, 0, 2),
    ('PLA filament',            'additive', 1.24, 55, 1, 45, 2),
    ('PETG filament',           'additive', 1.27, 48, 1, 45, 2),
    ('ABS filament',            'additive', 1.05, 38, 1.2, 45, 2),
    ('ASA filament',            'additive', 1.07, 42, 1.2, 45, 2),
    ('PC filament',             'additive', 1.2, 60, 1.2, 45, 2),
    ('Acrylate resin',          'additive', 1.15, 50, 0.5, 20, 0.5),
    ('AlSi10Mg powder',         'additive', 2.67, 400, 0.8, 45, 1),
    ('X2CrNiMo17-12-2 powder',  'additive', 7.95, 560, 0.5, 45, 1),
    ('X5CrNiCuNb16-4 powder',   'additive', 7.8, 950, 0.5, 45, 1),
    ('Ti-6Al-4V powder',        'additive', 4.41, 1050, 0.5, 45, 1),
    ('NiCr19Fe19Nb5Mo3 powder', 'additive', 8.19, 980, 0.5, 45, 1),
    ('CoCr28Mo6 powder',        'additive', 8.3, 1050, 0.5, 45, 1);

-- Base metals of welded structures
INSERT INTO materials (name, material_group, density, tensile_strength, weld_thickness_min) VALUES
    ('S235J2',            'weld', 7.85, 360, 1.5),
    ('S275JR',            'weld', 7.85, 410, 1.5),
    ('S355J2+N',          'weld', 7.85, 470, 1.5),
    ('S420M',             'weld', 7.85, 520, 2),
    ('S460M',             'weld', 7.85, 540, 2),
    ('S690QL',            'weld', 7.85, 770, 3),
    ('P265GH',            'weld', 7.85, 410, 1.5),
    ('16Mo3',             'weld', 7.85, 440, 2),
    ('X2CrNi19-11',       'weld', 7.9, 500, 1),
    ('X6CrNiMoTi17-12-2', 'weld', 8, 540, 1),
    ('X2CrNiMoN22-5-3',   'weld', 7.8, 650, 1.5),
    ('EN AW-5083-O',      'weld', 2.66, 275, 2),
    ('EN AW-5754-O',      'weld', 2.67, 190, 2),
    ('EN AW-6082-T651',   'weld', 2.7, 310, 2);

-- Tubes for bending
INSERT INTO materials (name, material_group, density, tensile_strength, bend_ratio) VALUES
    ('E235+N',               'tube', 7.85, 340, 1.5),
    ('E235+C',               'tube', 7.85, 480, 3),
    ('E355+N',               'tube', 7.85, 490, 2),
    ('P235TR1',              'tube', 7.85, 360, 1.5),
    ('34MnB5 tube',          'tube', 7.85, 550, 2.5),
    ('X5CrNi18-10 tube',     'tube', 7.9, 550, 2),
    ('X2CrNiMo17-12-2 tube', 'tube', 8, 520, 2),
    ('EN AW-3103-O tube',    'tube', 2.73, 100, 1.5),
    ('EN AW-6060-T4 tube',   'tube', 2.7, 130, 2),
    ('EN AW-6061-T4 tube',   'tube', 2.7, 180, 2.5),
    ('Cu-DHP R220',          'tube', 8.94, 220, 1.5),
    ('CuNi10Fe1Mn',          'tube', 8.9, 290, 1.5),
    ('Ti-3Al-2.5V tube',     'tube', 4.48, 620, 3);

-- Alloys for investment casting. They are poured into hot shells, so walls are thinner than in sand.
INSERT INTO materials (name, material_group, density, tensile_strength, wall_thickness_min, wall_thickness_max,
                       hole_diameter_min) VALUES
    ('G20Mn5',           'invest', 7.8, 480, 2, 25, 2.5),
    ('G26CrMo4',         'invest', 7.8, 550, 2, 25, 2.5),
    ('G42CrMo4',         'invest', 7.8, 700, 2, 25, 2.5),
    ('GX4CrNi13-4',      'invest', 7.7, 760, 1.8, 25, 2),
    ('GX5CrNiCu16-4',    'invest', 7.8, 760, 1.5, 25, 2),
    ('GX2CrNi19-11',     'invest', 7.9, 440, 1.5, 25, 2),
    ('GX2CrNiMo19-11-2', 'invest', 7.95, 440, 1.5, 25, 2),
    ('GX2CrNiMoN22-5-3', 'invest', 7.75, 600, 1.5, 25, 2),
    ('GX40CrNiSi25-12',  'invest', 7.8, 450, 1.8, 25, 2),
    ('EN AC-42200-T6',   'invest', 2.67, 290, 1.5, 15, 2),
    ('CuZn16Si4-C',      'invest', 8.3, 400, 1.5, 15, 2),
    ('CuAl10Fe2-C',      'invest', 7.6, 500, 2, 20, 2.5),
    ('CoCr28Mo6',        'invest', 8.3, 655, 1.2, 20, 2),
    ('G-NiCr13Al6MoNb',  'invest', 7.9, 760, 1.2, 20, 2),
    ('G-TiAl6V4',        'invest', 4.43, 880, 2, 20, 4);
