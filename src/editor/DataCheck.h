#pragma once

#include <QString>

namespace varnow {

/// Collects the failed checks of an entry page into one message.
class DataCheck
{
public:
    explicit DataCheck(const QString &header) : m_message(header) {}

    /// Takes the complaint up when the check failed.
    void failIf(bool failed, const QString &complaint);

    /// Shows the message when a check failed; returns whether none did.
    bool passed() const;

private:
    QString m_message;
    bool m_failed = false;
};

/// The name index of a record to remove as it was typed; a blank one is 0. Raises errors::TypeMismatch and
/// errors::Overflow for what is no 32-bit number.
int typedIndex(const QString &text);

/// Whether the beginning of the text is a number that no 32-bit integer holds.
bool isTooLarge(const QString &text);

} // namespace varnow
