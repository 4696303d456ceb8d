#include "startup/modGlobals.h"

namespace varnow {

QString gCfgServer;
QString gCfgDatabase;
QString gCfgUser;
QString gCfgPassword;

QString gVelmoraServer;
QString gVelmoraDatabase;
QString gVelmoraUser;
QString gVelmoraPassword;

QString gConnectString;
QStringList gConfigNames;
QString gDefaultConfigName;
QString gMsgTitle;
bool gDebugMode = false;

} // namespace varnow
