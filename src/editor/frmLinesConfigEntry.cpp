#include "editor/frmLinesConfig.h"

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "editor/lineChoice.h"
#include "editor/nodeKeys.h"
#include "ui/MessageBox.h"
#include "util/modDiagnostics.h"
#include "util/modMouse.h"
#include "util/modMsgbox.h"

namespace varnow {

namespace {

/// Collects the failed checks of an entry page into one message.
class DataCheck
{
public:
    explicit DataCheck(const QString &header) : m_message(header) {}

    void failIf(bool condition, const QString &text)
    {
        if (!condition)
            return;
        m_failed = true;
        m_message += lineBreak + "\t" + text;
    }

    /// Shows the message when a check failed; returns whether none did.
    bool passed() const
    {
        if (m_failed)
            ShowMessage(m_message, ui::style::Critical, "Data Checking");
        return !m_failed;
    }

private:
    QString m_message;
    bool m_failed = false;
};

/// Whether the beginning of the text is a number that no 32-bit integer holds.
bool isTooLarge(const QString &text)
{
    return guarded([&] { return leadingNumber(text), false; }, [](const RuntimeError &) { return true; });
}

/// The first complaint about the two entries of a fixed-length field, empty when both are right.
QString fixedLengthComplaint(const QString &length, const QString &position)
{
    const QString complaint = "A Fixed Length was indicated, however, the ";
    if (isBlank(length) && isBlank(position))
        return complaint + "length and position were not specified.";
    if (isBlank(length))
        return complaint + "length was not specified.";
    if (isBlank(position))
        return complaint + "position was not specified.";
    if (!isLong(length) && !isLong(position))
        return complaint + "length and position are not numeric.";
    if (!isLong(length))
        return complaint + "length is not a number.";
    if (!isLong(position))
        return complaint + "position is not a number.";
    return {};
}

void checkLineChoice(DataCheck &check, const LineChoice &line)
{
    check.failIf(line.isUnclosed, "The Line Name or Index field is invalid.");
    if (line.isUnclosed || !line.hasIndex)
        return;
    check.failIf(isBlank(line.name), "The Line Name is empty.");
    check.failIf(!isLong(line.index), "The Line Name Index is invalid.");
}

} // namespace

void frmLinesConfig::change()
{
    SetMousePointer(11);
    const bool stored = tsLines.currentPage() == LinesPage ? enterLine() : enterField();
    if (stored)
        mChangesMade = true;
    SetMousePointer(0);
}

/// Checks and stores the line of the lines page. Returns whether it was stored.
bool frmLinesConfig::enterLine()
{
    DataCheck check("There is a problem with the data for the line entry.");
    check.failIf(isBlank(Text1[0].text()), "The Line name is empty.");
    if (isBlank(Text1[1].text()))
        Text1[1].setText("0");
    check.failIf(!isLong(Text1[1].text()), "The Line Index must be numeric.");
    if (isBlank(Text1[2].text()))
        check.failIf(true, "The Message Index is empty.");
    else
        check.failIf(!isLong(Text1[2].text()), "The Message Index nust be a number.");
    if (!check.passed())
        return false;

    QString configuration = cboConfig.text();
    const int result = StoreDataInLabLineConfigRecordArray(
        0, configuration, Text1[0].text(), toLong(Text1[1].text()), toLong(Text1[2].text()), 0, "", "",
        QDateTime(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC));
    if (result == 0) {
        LoadLineChoices();
        RebuildTree();
        bringIntoView(lineNodeKey(Text1[2].text()));
    }
    Text1[0].setFocus();
    return result == 0;
}

/// Checks and stores the field of the field page. Returns whether it was stored.
bool frmLinesConfig::enterField()
{
    const LineChoice line = parseLineChoice(Combo2[0].text());
    if (!checkField(line))
        return false;

    const bool isFixed = ckFixedLength.value() == 1;
    const QString padChar = optPad[0].value() ? " " : "0";
    const int padDirection = optAlign[0].value() ? 1 : -1;
    QString configuration = cboConfig.text();
    QString name = Text2[0].text();
    const int result = StoreDataInLabLineFldCfgArray(
        configuration, name, line.name, leadingNumber(Text2[5].text()), leadingNumber(Text2[2].text()),
        leadingNumber(Text2[1].text()), leadingNumber(line.index), -1, leadingNumber(Text2[6].text()),
        "String", Combo2[1].text(), Text2[3].text(), Text2[4].text(), isFixed ? 1 : 0, isFixed ? padChar : "",
        isFixed ? padDirection : 0, isFixed ? toLong(Text2[7].text()) : 0);
    if (result == 0) {
        RebuildTree();
        bringIntoView(fieldNodeKey(Text2[2].text(), Text2[5].text()));
    }
    Text2[0].setFocus();
    return result == 0;
}

/// Makes every check of the field page and shows what failed. Returns whether none did.
bool frmLinesConfig::checkField(const LineChoice &line)
{
    DataCheck check("There is a problem with the data for the line field entry.");
    check.failIf(isBlank(Text2[0].text()), "The Field name is empty.");
    if (Text2[1].text().isEmpty())
        Text2[1].setText("0");
    check.failIf(!isLong(Text2[1].text()), "The Field Name Index must be numeric.");
    if (isBlank(Combo2[0].text()))
        check.failIf(true, "The Line Name and Index field is empty.");
    else
        checkLineChoice(check, line);
    check.failIf(isTooLarge(Text2[2].text()), "The Message Index nust be a number.");
    check.failIf(isBlank(Combo2[1].text()) && isBlank(Text2[4].text()),
                 "Both the Lookup String and the Constant value are empty," + lineBreak +
                     "\t\tyou must supply one or the other.");
    if (isBlank(Text2[5].text()))
        check.failIf(true, "The Position Field is empty.");
    else
        check.failIf(!isLong(Text2[5].text()), "The Position Field nust be a number.");

    QString complaint;
    if (ckFixedLength.value() == 1)
        complaint = fixedLengthComplaint(Text2[6].text(), Text2[7].text());
    else if (isTooLarge(Text2[6].text()))
        complaint = "A Fixed Length was indicated, however, the length is not a number.";
    check.failIf(!complaint.isEmpty(), complaint);
    return check.passed();
}

void frmLinesConfig::bringIntoView(const QString &nodeKey)
{
    const auto show = [&] {
        tvLines.ensureVisible(tvLines.node(nodeKey));
        return 0;
    };
    const auto report = [](const RuntimeError &error) {
        ShowMessage(QStringList{"An error occurred that prevented displaying the",
                                "configuration correctly.  This is usually caused",
                                "by an error in the configuration data.",
                                "Save your data, restart the line configuration",
                                "editor and enter data starting at that point."}
                        .join(lineBreak),
                    ui::style::Information, "Configuration");
        return error.number();
    };
    guarded(show, report);
}

} // namespace varnow
