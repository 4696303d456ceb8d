#include "base/names.h"

#include <algorithm>

namespace varnow {

namespace {

constexpr QChar firstStrongIsolate{0x2068};
constexpr QChar popIsolate{0x2069};

/// The marks that isolate and override directions: those of a name could end those around it.
bool isDirectionMark(QChar character)
{
    return (character >= QChar(0x2066) && character <= popIsolate) ||
           (character >= QChar(0x202A) && character <= QChar(0x202E));
}

bool breaksLine(QChar character)
{
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

} // namespace

QString isolated(const QString &name)
{
    QString shown = name;
    shown.removeIf(isDirectionMark);
    std::replace_if(shown.begin(), shown.end(), breaksLine, u' ');
    return firstStrongIsolate + shown + popIsolate;
}

QString shortened(QStringView text, qsizetype longest)
{
    if (text.size() <= longest)
        return text.toString();
    QStringView front = text.first((longest - 1) - (longest - 1) / 2);
    QStringView back = text.last((longest - 1) / 2);
    if (!front.isEmpty() && front.back().isHighSurrogate())
        front.chop(1);
    if (!back.isEmpty() && back.front().isLowSurrogate())
        back = back.sliced(1);
    return front.toString() + QChar(0x2026) + back.toString();
}

QString withShortNames(const QString &sentence, int longest)
{
    QString shown;
    qsizetype done = 0;
    for (;;) {
        const qsizetype begin = sentence.indexOf(firstStrongIsolate, done);
        const qsizetype end = sentence.indexOf(popIsolate, begin);
        if (begin < 0 || end < 0)
            return shown + sentence.sliced(done);
        shown += QStringView(sentence).sliced(done, begin + 1 - done);
        shown += shortened(QStringView(sentence).sliced(begin + 1, end - begin - 1), longest);
        done = end;
    }
}

QString withoutIsolation(QString sentence)
{
    return sentence.removeIf(isDirectionMark);
}

} // namespace varnow
