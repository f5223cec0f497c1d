#include "phone/notes/NotesSchema.h"

#include "phone/notes/Sqlite.h"

#include <cstdio>
#include <random>

namespace phone {

namespace {

constexpr const char* tables = R"(
CREATE TABLE ZACCOUNT (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER, ZTYPE INTEGER, ZDEFAULTSTORE INTEGER,
    ZACCOUNTIDENTIFIER VARCHAR, ZCONSTRAINTSPATH VARCHAR, ZNAME VARCHAR);
CREATE TABLE ZNEXTID (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER, ZCOUNTER INTEGER);
CREATE TABLE ZNOTE (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER, ZCONTAINSCJK INTEGER,
    ZCONTENTTYPE INTEGER, ZDELETEDFLAG INTEGER, ZEXTERNALFLAGS INTEGER, ZEXTERNALSEQUENCENUMBER INTEGER,
    ZEXTERNALSERVERINTID INTEGER, ZINTEGERID INTEGER, ZISBOOKKEEPINGENTRY INTEGER, ZBODY INTEGER, ZSTORE INTEGER,
    ZCREATIONDATE TIMESTAMP, ZMODIFICATIONDATE TIMESTAMP, ZAUTHOR VARCHAR, ZGUID VARCHAR, ZSERVERID VARCHAR,
    ZSUMMARY VARCHAR, ZTITLE VARCHAR);
CREATE TABLE ZNOTEBODY (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER, ZOWNER INTEGER, ZCONTENT VARCHAR,
    ZEXTERNALCONTENTREF VARCHAR, ZEXTERNALREPRESENTATION BLOB);
CREATE TABLE ZNOTECHANGE (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER, ZCHANGETYPE INTEGER,
    ZSTORE INTEGER, ZNOTEINTEGERIDS BLOB, ZNOTESERVERIDS BLOB, ZNOTESERVERINTIDS BLOB);
CREATE TABLE ZPROPERTY (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER, ZPROPERTYKEY VARCHAR,
    ZPROPERTYVALUE BLOB);
CREATE TABLE ZSTORE (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER, ZACCOUNT INTEGER,
    ZEXTERNALIDENTIFIER VARCHAR, ZNAME VARCHAR, ZSYNCANCHOR VARCHAR);
CREATE TABLE Z_PRIMARYKEY (Z_ENT INTEGER PRIMARY KEY, Z_NAME VARCHAR, Z_SUPER INTEGER, Z_MAX INTEGER);
CREATE TABLE Z_METADATA (Z_VERSION INTEGER PRIMARY KEY, Z_UUID VARCHAR(255), Z_PLIST BLOB);
CREATE INDEX ZNOTE_ZINTEGERID_INDEX ON ZNOTE (ZINTEGERID);
CREATE INDEX ZNOTE_ZSTORE_INDEX ON ZNOTE (ZSTORE);
CREATE INDEX ZNOTE_ZBODY_INDEX ON ZNOTE (ZBODY);
CREATE INDEX ZNOTEBODY_ZOWNER_INDEX ON ZNOTEBODY (ZOWNER);
CREATE INDEX ZSTORE_ZACCOUNT_INDEX ON ZSTORE (ZACCOUNT);
CREATE INDEX ZACCOUNT_ZDEFAULTSTORE_INDEX ON ZACCOUNT (ZDEFAULTSTORE);
CREATE INDEX ZNOTECHANGE_ZSTORE_INDEX ON ZNOTECHANGE (ZSTORE);
)";

constexpr const char* entityRows = R"(
INSERT INTO Z_PRIMARYKEY (Z_ENT, Z_NAME, Z_SUPER, Z_MAX) VALUES
    (1, 'Account', 0, 0), (2, 'NextId', 0, 0), (3, 'Note', 0, 0), (4, 'NoteBody', 0, 0), (5, 'NoteChange', 0, 0),
    (6, 'Property', 0, 0), (7, 'Store', 0, 0);
)";

constexpr const char* metadata = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>NSPersistenceFrameworkVersion</key>
	<integer>479</integer>
	<key>NSStoreModelVersionHashesVersion</key>
	<integer>3</integer>
	<key>NSStoreModelVersionIdentifiers</key>
	<array/>
	<key>NSStoreType</key>
	<string>SQLite</string>
	<key>_NSAutoVacuumLevel</key>
	<string>2</string>
</dict>
</plist>
)";

constexpr long metadataVersion = 1;

/// A random UUID (version 4), as the platform writes one.
std::string newUuid() {
    std::random_device random;
    unsigned char bytes[16];
    for (unsigned char& byte : bytes) {
        byte = static_cast<unsigned char>(random());
    }
    bytes[6] = (bytes[6] & 0x0f) | 0x40;
    bytes[8] = (bytes[8] & 0x3f) | 0x80;
    std::string uuid;
    for (int i = 0; i < 16; ++i) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", bytes[i]);
        uuid += i == 4 || i == 6 || i == 8 || i == 10 ? "-" : "";
        uuid += digits;
    }
    return uuid;
}

} // namespace

void createNotesSchema(sqlite3* database) {
    sqlite::run(database, tables);
    sqlite::run(database, entityRows);
    sqlite::Statement(database, "INSERT INTO ZNEXTID (Z_PK, Z_ENT, Z_OPT, ZCOUNTER) VALUES (?, ?, 1, 0)")
        .bind(takeKey(database, NextIdEntity))
        .bind(NextIdEntity)
        .run();
    sqlite::Statement(database, "INSERT INTO Z_METADATA (Z_VERSION, Z_UUID, Z_PLIST) VALUES (?, ?, CAST(? AS BLOB))")
        .bind(metadataVersion)
        .bind(newUuid())
        .bind(std::string(metadata))
        .run();
}

long takeKey(sqlite3* database, NotesEntity entity) {
    sqlite::Statement(database, "UPDATE Z_PRIMARYKEY SET Z_MAX = Z_MAX + 1 WHERE Z_ENT = ?").bind(entity).run();
    sqlite::Statement taken(database, "SELECT Z_MAX FROM Z_PRIMARYKEY WHERE Z_ENT = ?");
    if (!taken.bind(entity).next()) {
        throw NotesDatabaseError("notes database: Z_PRIMARYKEY holds no entity " + std::to_string(entity));
    }
    return taken.integer(0);
}

} // namespace phone
