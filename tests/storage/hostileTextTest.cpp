// Texts that try to leave their literal, or to lose a letter on the way, through every text column.

#include "support/StorageFixture.h"
#include "support/TdsServer.h"

#include <QRegularExpression>
#include <QSet>

namespace varnow::test {

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

Field fieldFullOf(const QString &text)
{
    Field full;
    full.configuration = full.name = full.line = full.lookup = full.format = text;
    full.constant = text.repeated(3990 / text.size());
    full.dataType = text.size() <= 50 ? text : QString();
    full.padCharacter = text.front().isSurrogate() ? QString() : text.left(1);
    return full;
}

/// The texts that tell whether a field came back equal.
QStringList textsOf(const Field &saved)
{
    return {saved.line, saved.dataType, saved.lookup, saved.format, saved.constant, saved.padCharacter};
}

struct HostileTexts : StorageTest
{
    /// Saves a line and a field for every text, and expects that those in `refused` count as errors.
    void expectSave(const QStringList &texts, const QStringList &refused)
    {
        emptyModel();
        for (const QString &text : texts + refused) {
            storeLine(0, text, text, 1, 1);
            fields.store(fieldFullOf(text));
        }
        EXPECT_EQ(save(), 0);
        const int errors = static_cast<int>(refused.size());
        const int correct = static_cast<int>(texts.size());
        expectMessages({summary(linesSaved, errors, correct), summary(fieldsSaved, errors, correct)});
        EXPECT_EQ(lines.size(), errors + correct);
        EXPECT_EQ(fields.size(), errors + correct);
    }

    /// Reads the statements as SQL Server does, and expects nothing but the values between fixed pieces.
    static void expectOnlyValues(const QStringList &statements, const QStringList &texts)
    {
        QSet<QString> values{"0", ""};
        for (const QString &text : texts)
            values << text << fieldFullOf(text).constant << fieldFullOf(text).padCharacter;
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
TEST_P(HostileTexts, ComeBackEqualOrAreCounted)
{
    const QStringList texts = hostileTexts();
    ASSERT_GE(texts.size(), 200);
    expectSave(texts, unsendableTexts());
    expectSave(texts, unsendableTexts()); // finds the rows of the first run and updates them
    if (database.server())
        expectOnlyValues(database.server()->statements(), texts);
    for (const QString table : {"LabLineConfig", "LabLineFieldConfig"})
        EXPECT_EQ(database.run("SELECT 1 FROM " + table).size(), texts.size());

    emptyModel();
    EXPECT_EQ(load(), 0);
    for (const QString &text : texts) {
        EXPECT_GE(lines.find(text, text, 1), 0) << qPrintable(text);
        const int index = fields.find(text, text, 0);
        ASSERT_GE(index, 0) << qPrintable(text);
        EXPECT_EQ(textsOf(fields[index]), textsOf(fieldFullOf(text))) << qPrintable(text);
    }
}

} // namespace varnow::test
