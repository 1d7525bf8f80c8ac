-- The database of the self test: four tables, of which run.sh damages the last one.
CREATE DATABASE vela_windows_host CHARACTER SET utf8mb4;
USE vela_windows_host;

CREATE TABLE artikel (ID INT PRIMARY KEY, NAME VARCHAR(40) NOT NULL, PREIS DECIMAL(10, 2) NOT NULL) ENGINE=MyISAM;
INSERT INTO artikel SELECT seq, CONCAT('Gehäuse Größe ', seq), seq * 1.25 FROM seq_1_to_800;

CREATE TABLE auftrag (ID INT PRIMARY KEY, KUNDE VARCHAR(40) NOT NULL, ORT VARCHAR(40), VOM DATE NOT NULL) ENGINE=InnoDB;
INSERT INTO auftrag SELECT seq, CONCAT('Müller & Söhne ', seq MOD 350 + 1), IF(seq MOD 7 = 0, NULL, 'Zürich'),
    DATE '2020-01-01' + INTERVAL seq MOD 1500 DAY FROM seq_1_to_20000;

CREATE TABLE kunde (ID INT PRIMARY KEY, NAME VARCHAR(40) NOT NULL) ENGINE=InnoDB;
INSERT INTO kunde SELECT seq, CONCAT('Müller & Söhne ', seq) FROM seq_1_to_350;

CREATE TABLE lager (ARTIKEL INT, FACH INT, MENGE INT NOT NULL, PRIMARY KEY (ARTIKEL, FACH)) ENGINE=MyISAM;
INSERT INTO lager SELECT seq MOD 800 + 1, seq DIV 800, seq FROM seq_1_to_1200;
ANALYZE TABLE auftrag, kunde;
FLUSH TABLES;
