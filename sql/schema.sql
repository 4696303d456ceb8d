-- The tables that Varnow reads and writes, in the SQL that SQL Server (2012 and later) and SQLite share.
-- A few things look plain because of that: there is no GO, no COLLATE clause, no default, and every text
-- that a user can type is nvarchar, so that SQL Server keeps all its letters.
--
-- Varnow tells names apart by letter case. SQLite does so by itself; on SQL Server make the database with
-- a collation that does, for example Latin1_General_100_BIN2.

-- The lines of every configuration. Configuration, Name and NameIndex tell a line from the others,
-- MsgIndex is its place in the message. Varnow reads the last four columns but never writes them.
CREATE TABLE LabLineConfig (
    id             int NOT NULL PRIMARY KEY,
    Configuration  nvarchar(200),
    Name           nvarchar(200),
    NameIndex      int,
    MsgIndex       int,
    number1        int,
    string1        nvarchar(255),
    text1          text,
    date1          datetime
);

-- The fields of the lines. Line and LineIndex name the field's line, Position is its place in that line,
-- MsgIndex repeats the line's. A fixed-length field (FixedLength 1) keeps its character position in
-- ValidationString, is filled up with PadChar and aligned right (PadDirection 1) or left (-1).
CREATE TABLE LabLineFieldConfig (
    id                int NOT NULL PRIMARY KEY,
    Configuration     nvarchar(200),
    Name              nvarchar(200),
    NameIndex         int,
    Line              nvarchar(200),
    LineIndex         int,
    MsgIndex          int,
    Position          int,
    Length            int,
    DataType          nvarchar(50),
    LookupString      nvarchar(255),
    FormatString      nvarchar(255),
    Constant          nvarchar(4000),
    ValidationString  nvarchar(255),
    FixedLength       int,
    PadChar           nvarchar(1),
    PadDirection      int
);

-- A save looks up every record by these columns; without an index it would read the whole table each time.
-- The names are short enough for the 900 bytes that SQL Server allows in an index.
CREATE INDEX LabLineConfig_key ON LabLineConfig (Configuration, Name, NameIndex);
CREATE INDEX LabLineFieldConfig_key ON LabLineFieldConfig (Configuration, Name, NameIndex);

-- The configurations that exist, and the one that the editor opens first.
CREATE TABLE data_extractor_config (
    config_name  nvarchar(200)
);

CREATE TABLE Misc_upload_constants (
    DefaultConfigName  nvarchar(200)
);

-- The data field names that the editor offers as lookups of a configuration.
CREATE TABLE data_extractor_fields_config (
    config_name  nvarchar(200),
    field_name   nvarchar(255)
);

-- The schema version that a login checks. The configuration database keeps it in the first column, the
-- main application database in the second; with both, this one table serves either.
-- A real is what the required versions are too, so an equal version compares equal. The brackets keep the
-- word from FreeTDS' tsql, to which a line that begins with it is a command of its own.
CREATE TABLE database_version (
    database_version  real,
    [version]         real
);
