-- Data database: patients (samples) and their results.
DROP TABLE IF EXISTS result;
DROP TABLE IF EXISTS patient;
CREATE TABLE patient (
    id INTEGER PRIMARY KEY,
    sampleNo TEXT NOT NULL,
    name TEXT,
    sex TEXT,
    age INTEGER,
    ageUnit TEXT,
    department TEXT,
    bed TEXT,
    doctor TEXT,
    sampleKind TEXT,
    collectTime DATETIME,
    receiveTime DATETIME,
    reportTime DATETIME,
    birthday DATE,
    checkTime TIME,
    diagnosis TEXT,
    remark TEXT,
    printTime DATETIME
);
CREATE INDEX patient_sampleNo ON patient(sampleNo);
CREATE TABLE result (
    id INTEGER PRIMARY KEY,
    patientId INTEGER NOT NULL REFERENCES patient(id),
    item TEXT,
    subitem TEXT,
    abbr TEXT,
    code TEXT,
    result TEXT,
    unit TEXT,
    flag INTEGER NOT NULL DEFAULT 0,
    lowerMarkLimit REAL,
    upperMarkLimit REAL,
    displayOrder INTEGER
);
CREATE INDEX result_patient ON result(patientId, displayOrder);
