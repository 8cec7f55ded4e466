-- Makes the database of element lines of the table "element_lines.csv": sqlite3 Atomic.db ".read Atomic.sql"
CREATE TABLE Elements (
  Num INTEGER PRIMARY KEY, Symbol TEXT NOT NULL UNIQUE COLLATE NOCASE, Element TEXT NOT NULL,
  KAve REAL, Ka1 REAL, Ka2 REAL, Kb1 REAL, La1 REAL, Lb1 REAL, Lg1 REAL, AbsEdge REAL);
.import --csv element_lines.csv Lines
INSERT INTO Elements
  SELECT Num, Symbol, Element, nullif(KAve, ''), nullif(Ka1, ''), nullif(Ka2, ''), nullif(Kb1, ''),
         nullif(La1, ''), nullif(Lb1, ''), nullif(Lg1, ''), nullif(AbsEdge, '')
  FROM Lines;
DROP TABLE Lines;

-- The licence goes with any copy of the data.
CREATE TABLE Licence (Text TEXT NOT NULL);
INSERT INTO Licence SELECT CAST(readfile('LICENSE.xraylib') AS TEXT);
VACUUM;
