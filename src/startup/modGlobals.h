#pragma once

#include <QString>
#include <QStringList>

namespace varnow {

// Connection values of the configuration database, exactly as they were typed.
extern QString gCfgServer;
extern QString gCfgDatabase;
extern QString gCfgUser;
extern QString gCfgPassword;

// Connection values of the Velmora database, exactly as they were typed.
extern QString gVelmoraServer;
extern QString gVelmoraDatabase;
extern QString gVelmoraUser;
extern QString gVelmoraPassword;

/// The connection string built last by a routine that opens its own connection.
extern QString gConnectString;

/// The names of all configurations, trimmed, in the database's order.
extern QStringList gConfigNames;

/// The configuration that the editor opens first.
extern QString gDefaultConfigName;

/// Title of every message box that is given none.
extern QString gMsgTitle;

/// Diagnostics switch of the error traps; nothing turns it on.
extern bool gDebugMode;

} // namespace varnow
