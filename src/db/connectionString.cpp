#include "db/connectionString.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "db/errorCodes.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <utility>

namespace varnow::db {

namespace {

[[noreturn]] void refuse(const QString &description)
{
    throw RuntimeError(codes::Failure, description);
}

/// Cuts `text` in two at the key at `position`; returns the part before it and leaves the part behind it.
QString takeUntil(QString &text, QLatin1String key, qsizetype position)
{
    if (position < 0)
        refuse(QStringLiteral("The connection string is incomplete"));
    const QString before = text.left(position);
    text.remove(0, position + key.size());
    return before;
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

QString odbcValue(const QString &value)
{
    return u'{' + QString(value).replace(u'}', QLatin1String("}}")) + u'}';
}

} // namespace

Dialect ConnectionValues::dialect() const
{
    return trimmedView(server) == u"(sqlite)" ? Dialect::Sqlite : Dialect::SqlServer;
}

ConnectionValues parseConnectionString(const QString &text)
{
    constexpr QLatin1String start("Provider=sqloledb;server="), uid(";uid="), pwd(";pwd="),
        database(";database="), app(";App=");
    if (!text.startsWith(start) || text.contains(QChar(u'\0')) || !text.isValidUtf16())
        refuse(QStringLiteral("The connection string is incomplete"));

    // Nothing in the string is quoted. Names rarely hold a key, passwords may: so the keys before the
    // password are the first ones found, those behind it the last.
    QString rest = text.sliced(start.size());
    ConnectionValues values;
    values.server = takeUntil(rest, uid, rest.indexOf(uid));
    values.user = takeUntil(rest, pwd, rest.indexOf(pwd));
    values.password = takeUntil(rest, database, rest.lastIndexOf(database));
    if (const qsizetype position = rest.lastIndexOf(app); position >= 0) {
        const QString name = takeUntil(rest, app, position);
        values.application = std::exchange(rest, name);
    }
    if (rest.endsWith(u';'))
        rest.chop(1);
    values.database = rest;
    return values;
}

QString sqliteConnectionString(const ConnectionValues &values, int timeout)
{
    const QString path = QFileInfo(values.database).absoluteFilePath();
    if (values.database.isEmpty() || !isSqliteFile(path))
        refuse(QStringLiteral("The file is missing or no database"));
    // The driver ends the path at the first semicolon and knows no quotation.
    if (path.contains(u';'))
        refuse(QStringLiteral("SQLite's driver cannot take a path that holds a semicolon"));
    // The driver may wait three times for one connection and its statement.
    return QStringLiteral("Driver={SQLite3};NoCreat=Yes;Timeout=%1;Database=%2;")
        .arg(timeout * 1000 / 3)
        .arg(path);
}

QString sqlServerConnectionString(const ConnectionValues &values, const QString &driver)
{
    const Address address = parseServer(values.server);
    const bool freeTds = driver == u"FreeTDS";
    const auto value = freeTds ? freeTdsValue : odbcValue;

    QString result = "Driver={" + driver + "};";
    if (freeTds) {
        result += "Server=" + value(address.host) + ";TDS_Version=7.4;";
        if (address.port != 0)
            result += "Port=" + QString::number(address.port) + u';';
    } else {
        const QString port = address.port != 0 ? u',' + QString::number(address.port) : QString();
        result += "Server=" + value(address.host + port) + u';';
    }
    result += "UID=" + value(values.user) + ";PWD=" + value(values.password) +
              ";Database=" + value(values.database) + ";APP=" + value(values.application) + u';';
    return result;
}

} // namespace varnow::db
