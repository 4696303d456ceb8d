#include "startup/modCommandLine.h"

namespace varnow {

QStringList GetCommandLine(const QString &argumentText, int maximum)
{
    QStringList words{QString()};
    bool insideWord = false;
    for (const QChar c : argumentText) {
        if (c == u' ' || c == u'\t') {
            insideWord = false;
            continue;
        }
        if (!insideWord) {
            if (words.size() > maximum)
                break;
            words.append(QString());
            insideWord = true;
        }
        words.last().append(c);
    }
    return words;
}

} // namespace varnow
