#include "db/odbcConnectionString.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "db/codes.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace varnow::db {

namespace {

/// The program's executable, by which the server knows its clients.
constexpr QLatin1String application("{varnow}");

[[noreturn]] void refuse(const QString &description)
{
    throw RuntimeError(codes::Failure, description);
}

bool isSqliteFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    // A database without any table yet is an empty file.
    return file.size() == 0 || file.read(16) == QByteArray("SQLite format 3\0", 16);
}

/// Where a server listens: by port, or (port 0) by the name of an instance behind the host's.
struct Address
{
    QString host;
    ushort port;
};

Address parseServer(const QString &server)
{
    QString name = trim(server);
    if (name.startsWith(u"tcp:", Qt::CaseInsensitive))
        name.remove(0, 4);
    const qsizetype comma = name.lastIndexOf(u',');
    const bool hasPort = comma >= 0;
    const ushort port = hasPort ? trim(name.sliced(comma + 1)).toUShort() : 1433;
    if (port == 0)
        refuse(QStringLiteral("The server's port makes no sense"));

    const QString path = hasPort ? name.left(comma) : name;
    QString host = trim(path.section(u'\\', 0, 0));
    const QString instance = trim(path.section(u'\\', 1));
    if (host.isEmpty())
        refuse(QStringLiteral("The server has no name"));
    if (host == u"." || host.compare(u"(local)", Qt::CaseInsensitive) == 0)
        host = QStringLiteral("localhost");
    if (hasPort || instance.isEmpty())
        return {host, port};
    return {host + u'\\' + instance, 0};
}

bool isThisMachine(const QString &host)
{
    static const QRegularExpression names(QRegularExpression::anchoredPattern(
        R"(localhost|::1|127(\.(25[0-5]|2[0-4][0-9]|1[0-9][0-9]|[1-9]?[0-9])){3})"));
    return names.match(host.section(u'\\', 0, 0).toLower()).hasMatch();
}

/// Whether the log-in may reach this host only encrypted. A word in VARNOW_ENCRYPTION that has no meaning
/// gets the strictest one, lest a slip of the pen send a password in the clear.
bool requiresEncryptionTo(const QString &host)
{
    const QString scope = qEnvironmentVariable("VARNOW_ENCRYPTION");
    if (scope == u"never")
        return false;
    if (scope.isEmpty() || scope == u"remote")
        return !isThisMachine(host);
    return true;
}

/// FreeTDS ends a value at the first "};" and knows no way to write that inside one. To the driver manager it
/// ends at the first "}" already, and what follows could name another driver or a data source.
QString freeTdsValue(const QString &value)
{
    static const QRegularExpression endsEarly("};|}.*(driver|dsn|savefile)",
                                              QRegularExpression::CaseInsensitiveOption |
                                                  QRegularExpression::DotMatchesEverythingOption);
    if (value.contains(endsEarly))
        refuse(QStringLiteral("ODBC cannot take this value whole"));
    return u'{' + value + u'}';
}

/// FreeTDS believes these more than the connection string: they name another server, or a version of the
/// protocol from before encryption.
void dropFreeTdsVariables()
{
    for (const char *variable : {"TDSHOST", "TDSPORT", "TDSVER"})
        qunsetenv(variable);
}

QString odbcValue(const QString &value)
{
    return u'{' + QString(value).replace(u'}', QLatin1String("}}")) + u'}';
}

} // namespace

// The driver manager looks for the key DRIVER by the rules of the locale: in Turkish, "Driver" is another
// word.

QString sqliteConnectionString(const ConnectionSettings &settings, int timeout)
{
    const QString path = QFileInfo(trim(settings.database)).absoluteFilePath();
    if (!isSqliteFile(path))
        refuse(QStringLiteral("The file is missing or no database"));
    // The driver ends the path at the first semicolon and knows no quotation.
    if (path.contains(u';'))
        refuse(QStringLiteral("SQLite's driver cannot take a path that holds a semicolon"));
    // The driver may wait three times for one connection and its statement.
    return QStringLiteral("DRIVER={SQLite3};NoCreat=Yes;Timeout=%1;Database=%2;")
        .arg(timeout * 1000 / 3)
        .arg(path);
}

QString sqlServerConnectionString(const ConnectionSettings &settings, const QString &driver)
{
    const Address address = parseServer(settings.server);
    const bool freeTds = driver == u"FreeTDS";
    const auto value = freeTds ? freeTdsValue : odbcValue;

    QString result = "DRIVER={" + driver + "};";
    if (freeTds) {
        dropFreeTdsVariables();
        result += "Server=" + value(address.host) + ";TDS_Version=7.4;";
        if (address.port != 0)
            result += "Port=" + QString::number(address.port) + u';';
    } else {
        const QString port = address.port != 0 ? u',' + QString::number(address.port) : QString();
        result += "Server=" + value(address.host + port) + u';';
    }
    result += "UID=" + value(settings.user) + ";PWD=" + value(settings.password) +
              ";Database=" + value(trim(settings.database)) + ";APP=" + application + u';';
    // Behind everything else, for of two such entries the last one counts.
    if (requiresEncryptionTo(address.host))
        result += freeTds ? "Encryption=require;" : "Encrypt=yes;";
    return result;
}

bool requiresEncryption(const ConnectionSettings &settings)
{
    return settings.dialect() == Dialect::SqlServer &&
           requiresEncryptionTo(parseServer(settings.server).host);
}

} // namespace varnow::db
