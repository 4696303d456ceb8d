#include "lines/runSummary.h"

#include "base/text.h"

namespace varnow {

void showRunSummary(const QString &title, int errorCount, int recordCount)
{
    ShowMessage(title + lineBreak + QStringLiteral("  %1 errors occurred").arg(errorCount) + lineBreak +
                QStringLiteral("  %1 records processed correctly.").arg(recordCount - errorCount));
}

} // namespace varnow
