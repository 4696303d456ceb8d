#pragma once

#include <QString>
#include <QStringView>

// Names that users type stand in the middle of sentences. They may be very long, hold line breaks, or run
// from right to left.

namespace varnow {

/// The name as part of a sentence: marked, so that its direction leaves that of the rest alone, and in one
/// line.
QString isolated(const QString &name);

/// The text without its middle, where it is longer than that many characters; pairs of surrogates stay whole.
QString shortened(QStringView text, qsizetype longest);

/// The sentence with every isolated name that is longer than that many characters shortened in its middle.
QString withShortNames(const QString &sentence, int longest);

/// The sentence without the marks around its names.
QString withoutIsolation(QString sentence);

} // namespace varnow
