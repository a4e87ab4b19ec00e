-- QC database: control materials with their runs, workbenches and their maintenance.
DROP TABLE IF EXISTS qcResult;
DROP TABLE IF EXISTS reagent;
DROP TABLE IF EXISTS maintenanceRecord;
DROP TABLE IF EXISTS workbench;
CREATE TABLE reagent (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL,
    lot TEXT,
    level TEXT,
    controlNo INTEGER NOT NULL,
    manufacturer TEXT,
    expiry DATE,
    assayTemplate TEXT,
    assayItem TEXT,
    unit TEXT,
    targetValue REAL,
    mean REAL,
    sd REAL,
    hasLimits INTEGER NOT NULL DEFAULT 0,
    upperStopLimit REAL,
    upperMarkLimit REAL,
    lowerMarkLimit REAL,
    lowerStopLimit REAL
);
CREATE TABLE qcResult (
    id INTEGER PRIMARY KEY,
    reagentId INTEGER NOT NULL REFERENCES reagent(id),
    time DATETIME NOT NULL,
    value REAL,
    rejected INTEGER NOT NULL DEFAULT 0,
    operator TEXT
);
CREATE INDEX qcResult_reagent ON qcResult(reagentId, time);
CREATE TABLE workbench (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL
);
CREATE TABLE maintenanceRecord (
    id INTEGER PRIMARY KEY,
    workbench INTEGER NOT NULL REFERENCES workbench(id),
    recordType INTEGER NOT NULL,
    date DATE NOT NULL,
    task TEXT NOT NULL,
    operator TEXT,
    result TEXT,
    remark TEXT
);
CREATE INDEX maintenanceRecord_month ON maintenanceRecord(workbench, recordType, date);
