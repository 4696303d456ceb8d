// Texts that try to leave their literal, or to lose a letter on the way, through every text column.

#include "fields/modLabLineFldCfgDatabase.h"
#include "support/StoreFixture.h"
#include "support/TdsServer.h"

#include <QRegularExpression>
#include <QSet>

using namespace varnow;
using namespace varnow::test;

namespace {

/// Every piece alone, twice, within letters, and next to an apostrophe on either side.
QStringList framed(const QStringList &pieces)
{
    QStringList texts;
    for (const QString &piece : pieces)
        texts << piece << piece + piece << 'a' + piece + 'z' << '\'' + piece << piece + '\'';
    texts.removeDuplicates();
    return texts;
}

/// Pieces without two blanks in a row, which part them here.
QStringList hostileTexts()
{
    const QString pieces =
        "'  ''  \\'  \"  `  [a]]  --  /*  */  ;  \\  \\\n  \\\r\n  \\\\\n\n  \\\n\\\n  \nGO\n  \t  \r  "
        "%  %1  %%s%n  _  ?  :x @y $z  @@version  {  }  {fn NOW()}  {ts '2020-01-01'}  N'x'  N'  "
        "NULL  0x41  1e5  ' OR '1' = '1  '; DELETE LabLineConfig; --  "
        "'); DROP TABLE LabLineConfig; --  ', Name = 'x' WHERE 1 = 1; --  ' UNION SELECT 1; --  "
        "\u0001\u001F\u007F  \u0085\u00A0\u2028\u3000  e\u0301\u0308\u0327  "
        "\u00E9\u00DF\u0130\u0131  \u0142\u20AC\u4E2D\u3042\uD55C  "
        "\u05E9\u05DC\u05D5\u05DD \u0645\u0631\u062D\u0628\u0627  \u202Eabc\u202C\u200F  "
        "\u200B\u200D\uFEFF  \U0001F9EA  \U0001F468\u200D\U0001F52C  \U00010000\U0010FFFD  "
        "\u02BC\u2019\uFF07"; // at the end apostrophes to a reader only
    return framed(pieces.split("  ") + QStringList{QString(QChar(0xFFFF)) + QChar(0xFFFE), QString(99, u'x'),
                                                   QString(99, u'\u20AC')});
}

/// No driver passes these on whole.
QStringList unsendableTexts()
{
    return framed({QString(QChar(u'\0')), "' --" + QString(QChar(u'\0')), QString(QChar(0xD800)),
                   QString(QChar(0xDC00)), QString(QChar(0xDC00)) + QChar(0xD800)});
}

LabLineFldCfgRecord fieldFullOf(const QString &text)
{
    LabLineFldCfgRecord field;
    field.id = -1;
    field.Configuration = field.Name = field.Line = field.LookupString = field.FormatString = text;
    field.Constant = text.repeated(3990 / text.size());
    field.DataType = text.size() <= 50 ? text : QString();
    field.PadChar = text.front().isSurrogate() ? QString() : text.left(1);
    return field;
}

/// The texts that tell whether a field came back equal.
QStringList textsOf(const LabLineFldCfgRecord &field)
{
    return {field.Line,         field.DataType, field.LookupString,
            field.FormatString, field.Constant, field.PadChar};
}

struct HostileTexts : StoreTest
{
    /// Saves a line and a field for every text, and expects that those in `refused` count as errors.
    void save(const QStringList &texts, const QStringList &refused)
    {
        emptyStores();
        for (const QString &text : texts + refused) {
            storeLine(0, text, text, 1, 1);
            storeField(fieldFullOf(text));
        }
        EXPECT_EQ(SaveAllLabLineData(), 0);
        const int errors = static_cast<int>(refused.size());
        const int correct = static_cast<int>(texts.size());
        expectBoxes({summary(linesSaved, errors, correct), summary(fieldsSaved, errors, correct)});
        EXPECT_EQ(LabLineTable.size(), errors + correct);
        EXPECT_EQ(LabLineFldTable.size(), errors + correct);
    }

    /// Reads the statements as SQL Server does, and expects nothing but the values between fixed pieces.
    static void expectOnlyValues(const QStringList &statements, const QStringList &texts)
    {
        QSet<QString> values{"0", ""};
        for (const QString &text : texts)
            values << text << fieldFullOf(text).Constant << fieldFullOf(text).PadChar;
        const QRegularExpression literal("N?'((?:[^']++|'')*+)'");
        const QRegularExpression continuedLine("\\\\\r?\n");
        const QRegularExpression number("\\d+");
        QSet<QString> fixedPieces;
        for (const QString &statement : statements) {
            for (const QRegularExpressionMatch &match : literal.globalMatch(statement)) {
                const QString text = match.captured(1).remove(continuedLine).replace("''", "'");
                EXPECT_TRUE(values.contains(text)) << qPrintable(statement);
            }
            fixedPieces << QString(statement).replace(literal, "?").replace(number, "#");
        }
        EXPECT_EQ(fixedPieces.size(), 8) << "look up, take an identifier, insert and update, in two tables";
    }
};

} // namespace

ON_EVERY_ENGINE(HostileTexts);

// Fault: a text that ends its literal, is cut, loses or changes a letter, or is lost without an error;
// anything in a statement besides its fixed pieces and its values.
TEST_P(HostileTexts, comeBackEqualOrAreCounted)
{
    const QStringList texts = hostileTexts();
    ASSERT_GE(texts.size(), 200);
    save(texts, unsendableTexts());
    save(texts, unsendableTexts()); // finds the rows of the first run and updates them
    if (database.server())
        expectOnlyValues(database.server()->statements(), texts);
    for (const QString table : {"LabLineConfig", "LabLineFieldConfig"})
        EXPECT_EQ(database.run("SELECT 1 FROM " + table).size(), texts.size());

    emptyStores();
    EXPECT_EQ(LoadAllLabLineData(), 0);
    for (const QString &text : texts) {
        QString configuration = text;
        QString name = text;
        int start = 0;
        EXPECT_GE(FindLabLineConfigIndex(configuration, text, 1, start, 1), 0) << qPrintable(text);
        const int index = FindLabLineFldConfigIndexByName(configuration, name, 0, start, 1);
        ASSERT_GE(index, 0) << qPrintable(text);
        EXPECT_EQ(textsOf(LabLineFldTable[index]), textsOf(fieldFullOf(text))) << qPrintable(text);
    }
}
