-- Configuration database: the assays the analyser runs.
DROP TABLE IF EXISTS assayItem;
DROP TABLE IF EXISTS assayTemplate;
CREATE TABLE assayTemplate (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL UNIQUE,
    method TEXT
);
CREATE TABLE assayItem (
    id INTEGER PRIMARY KEY,
    assayTemplateId INTEGER NOT NULL REFERENCES assayTemplate(id),
    name TEXT NOT NULL,
    abbr TEXT,
    code TEXT,
    unit TEXT,
    precision INTEGER NOT NULL DEFAULT 2,
    visible INTEGER NOT NULL DEFAULT 1,
    referenceLow REAL,
    referenceHigh REAL,
    criticalLow REAL,
    criticalHigh REAL,
    displayOrder INTEGER
);
CREATE INDEX assayItem_template ON assayItem(assayTemplateId, name);
