#pragma once

#include <QString>

#include <stdexcept>

namespace varnow {

/// The numbers of the run-time errors that the program itself raises.
namespace errors {
inline constexpr int Overflow = 6;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int TypeMismatch = 13;
inline constexpr int UserInterrupt = 18;
inline constexpr int NoObject = 91;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int NoCurrentRow = 3021;
inline constexpr int NoSuchColumn = 3265;
inline constexpr int ResultSetClosed = 3704;
inline constexpr int ElementNotFound = 35601;
inline constexpr int LineNotFound = 150076;
inline constexpr int FieldNotSaved = 150079;
inline constexpr int LineNotSaved = 150080;
} // namespace errors

/// The one exception of the program: an error number and its description.
/// Every public routine that promises a numeric result catches it and returns the number.
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
