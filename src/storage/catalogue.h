#pragma once

#include "storage/Run.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace varnow {

/// The names of all configurations, trimmed, in the database's order; none when the query fails. Raises
/// errors::InvalidUseOfNull for a name that is Null, and errors::UserInterrupt when the user stopped it.
QStringList loadConfigurationNames(Run &run);

/// The configuration that the editor opens first, and why it is only a substitute.
struct DefaultConfiguration
{
    enum class Problem { None, QueryFailed, NoRow, Blank, Unreadable };

    QString name = QStringLiteral("Standard");
    Problem problem = Problem::None;
};

/// Raises errors::UserInterrupt when the user stopped it.
DefaultConfiguration loadDefaultConfiguration(Run &run);

/// The data field names of a configuration, trimmed, and how the reading of them ended.
struct DataFieldNames
{
    enum class Outcome { Complete, NotConnected, QueryFailed, BrokenOff };

    Outcome outcome = Outcome::Complete;
    QStringList names;        ///< after BrokenOff those read before the error
    int errorNumber = 0;      ///< of any outcome but Complete
    QString errorDescription; ///< the same
};

/// `configuration` is taken as it was typed: one with blanks around it has no data field names. At most 32767
/// rows are read; more break off with errors::Overflow.
DataFieldNames loadDataFieldNames(const db::ConnectionSettings &database, const QString &configuration);

/// The data field names of all configurations, trimmed, by the trimmed name of the configuration. Raises the
/// provider's error code, and errors::UserInterrupt when the user stopped it.
QHash<QString, QStringList> loadAllDataFieldNames(Run &run);

} // namespace varnow
