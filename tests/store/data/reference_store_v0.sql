-- The reference store as the library made it before text columns declared the text order
-- (user_version 0). Kept to test that such stores are brought up to date.
CREATE TABLE "Gemeinden" (
  "Nr" INTEGER PRIMARY KEY AUTOINCREMENT,
  "ID" TEXT NOT NULL UNIQUE DEFAULT ('{' || hex(randomblob(4)) || '-' || hex(randomblob(2)) || '-' || hex(randomblob(2)) || '-' || hex(randomblob(2)) || '-' || hex(randomblob(6)) || '}'),
  "Gemeinde" TEXT,
  "Sachbearbeiter" TEXT,
  "Gemeindenummer" TEXT,
  "Strasse" TEXT,
  "PLZ" TEXT,
  "Ort" TEXT,
  "Telefon" TEXT
);
CREATE INDEX "ix_Gemeinden_1" ON "Gemeinden" ("Gemeindenummer");
CREATE TABLE "BMVG_Kassen" (
  "Nr" INTEGER PRIMARY KEY AUTOINCREMENT,
  "ID" TEXT NOT NULL UNIQUE DEFAULT ('{' || hex(randomblob(4)) || '-' || hex(randomblob(2)) || '-' || hex(randomblob(2)) || '-' || hex(randomblob(2)) || '-' || hex(randomblob(6)) || '}'),
  "Leitzahl" TEXT,
  "Name" TEXT,
  "Sachbearbeiter" TEXT,
  "Strasse" TEXT,
  "PLZ" TEXT,
  "Ort" TEXT,
  "Telefon" TEXT,
  "Institut" TEXT,
  "Bauarbeiter_Kasse" BOOLEAN DEFAULT 0,
  "Anmerkung" TEXT
);
CREATE INDEX "ix_BMVG_Kassen_1" ON "BMVG_Kassen" ("Leitzahl");
CREATE TABLE "DM_Austrittsgründe" (
  "Code" SMALLINT PRIMARY KEY,
  "Kürzel" TEXT,
  "Grund" TEXT
);
CREATE TABLE "Länder" (
  "ID" INTEGER PRIMARY KEY,
  "HVB" INTEGER DEFAULT 0,
  "Kurzbezeichnung" TEXT,
  "Bezeichnung" TEXT,
  "ISOA3" TEXT,
  "ISOA2" TEXT,
  "KFZ" TEXT,
  "EULand" BOOLEAN DEFAULT 0
);
CREATE INDEX "ix_Länder_1" ON "Länder" ("HVB");
CREATE TABLE "Länder_Indikatoren" (
  "ID" INTEGER PRIMARY KEY,
  "LID" INTEGER REFERENCES "Länder" ("ID") ON DELETE CASCADE,
  "Zeitraum" INTEGER,
  "Indikator" DOUBLE DEFAULT 0,
  "Faktor" DOUBLE DEFAULT 0
);
CREATE INDEX "ix_Länder_Indikatoren_1" ON "Länder_Indikatoren" ("LID", "Zeitraum");
