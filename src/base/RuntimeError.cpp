#include "base/RuntimeError.h"

namespace varnow {

namespace {

QString standardDescription(int number)
{
    switch (number) {
    case errors::Overflow:
        return QStringLiteral("Overflow");
    case errors::OutOfMemory:
        return QStringLiteral("Out of memory");
    case errors::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case errors::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case errors::UserInterrupt:
        return QStringLiteral("User interrupt occurred");
    case errors::InvalidUseOfNull:
        return QStringLiteral("Invalid use of Null");
    case errors::NoCurrentRow:
        return QStringLiteral("There is no current row");
    case errors::NoSuchColumn:
        return QStringLiteral("The result has no such column");
    case errors::ResultSetClosed:
        return QStringLiteral("The result set is closed");
    case errors::ElementNotFound:
        return QStringLiteral("Element not found");
    default:
        return QStringLiteral("Error %1").arg(number);
    }
}

} // namespace

RuntimeError::RuntimeError(int number) : RuntimeError(number, standardDescription(number)) {}

RuntimeError::RuntimeError(int number, const QString &description)
    : std::runtime_error(description.toStdString()), m_number(number), m_description(description)
{
}

} // namespace varnow
