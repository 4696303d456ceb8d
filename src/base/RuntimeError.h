#pragma once

#include <QString>

#include <stdexcept>

namespace varnow {

/// The numbers of the run-time errors that the program itself raises.
namespace errors {
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int TypeMismatch = 13;
inline constexpr int UserInterrupt = 18;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int NoCurrentRow = 3021;
inline constexpr int NoSuchColumn = 3265;
inline constexpr int ResultSetClosed = 3704;
inline constexpr int ElementNotFound = 35601;
} // namespace errors

/// The one exception of the program: an error number and its description.
/// It is caught where a routine promises a number or shows a message.
class RuntimeError : public std::runtime_error
{
public:
    /// An error with the standard description of its number.
    explicit RuntimeError(int number);
    RuntimeError(int number, const QString &description);

    int number() const { return m_number; }
    const QString &description() const { return m_description; }

private:
    int m_number;
    QString m_description;
};

} // namespace varnow
