// Texts that try to leave their literal, or to lose a letter on the way, through every text column.

#include "fields/modLabLineFldCfgDatabase.h"
#include "support/StoreFixture.h"
#include "support/TdsServer.h"

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

QStringList hostileTexts()
{
    return framed({"'",
                   "''",
                   "\\'",
                   "\"",
                   "`",
                   "[a]]",
                   "--",
                   "/*",
                   "*/",
                   ";",
                   "\\",
                   "\\\n",
                   "\\\r\n",
                   "\\\\\n\n",
                   "\\\n\\\n",
                   "\nGO\n",
                   "\t",
                   "\r",
                   "%",
                   "%1",
                   "%%s%n",
                   "_",
                   "?",
                   ":x @y $z",
                   "@@version",
                   "{",
                   "}",
                   "{fn NOW()}",
                   "{ts '2020-01-01'}",
                   "N'x'",
                   "N'",
                   "NULL",
                   "0x41",
                   "1e5",
                   "' OR '1' = '1",
                   "'; DELETE LabLineConfig; --",
                   "'); DROP TABLE LabLineConfig; --",
                   "', Name = 'x' WHERE 1 = 1; --",
                   "' UNION SELECT 1; --",
                   "\u0001\u001F\u007F",
                   "\u0085\u00A0\u2028\u3000",
                   "e\u0301\u0308\u0327",
                   "\u00E9\u00DF\u0130\u0131",
                   "\u0142\u20AC\u4E2D\u3042\uD55C",
                   "\u05E9\u05DC\u05D5\u05DD \u0645\u0631\u062D\u0628\u0627",
                   "\u202Eabc\u202C\u200F",
                   "\u200B\u200D\uFEFF",
                   "\U0001F9EA",
                   "\U0001F468\u200D\U0001F52C",
                   "\U00010000\U0010FFFD",
                   "\u02BC\u2019\uFF07", // apostrophes to a reader only
                   QString(QChar(0xFFFF)) + QChar(0xFFFE),
                   QString(99, u'x'),
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

/// A statement without its values.
struct TakenApart
{
    QString skeleton; // "?" for every text, "#" for every number
    QStringList texts;
};

/// Reads a statement letter by letter as SQL Server does.
TakenApart takeApart(const QString &sql)
{
    TakenApart result;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        if (sql[i] == '\'') {
            QString &text = result.texts.emplaceBack();
            while (++i < sql.size()) {
                const QStringView rest = QStringView(sql).sliced(i);
                if (rest.startsWith(u"\\\n"))
                    i += 1;
                else if (rest.startsWith(u"\\\r\n"))
                    i += 2;
                else if (rest.startsWith(u"''"))
                    text += sql[++i];
                else if (sql[i] == '\'')
                    break;
                else
                    text += sql[i];
            }
            if (result.skeleton.endsWith(" N"))
                result.skeleton.chop(1);
            result.skeleton += '?';
        } else if (sql[i].isDigit()) {
            if (!result.skeleton.endsWith('#'))
                result.skeleton += '#';
        } else {
            result.skeleton += sql[i];
        }
    }
    return result;
}

const QSet<QString> skeletonsOfSave{
    "SELECT id FROM LabLineConfig WHERE Configuration = ? AND Name = ? AND NameIndex = #;",
    "SELECT MAX(id) FROM LabLineConfig;",
    "INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex) VALUES (#, ?, ?, #, #);",
    "UPDATE LabLineConfig SET Configuration = ?, Name = ?, NameIndex = #, MsgIndex = # WHERE id = #;",
    "SELECT id FROM LabLineFieldConfig WHERE Configuration = ? AND Name = ? AND NameIndex = # AND Line = ? "
    "AND LineIndex = #;",
    "SELECT MAX(id) FROM LabLineFieldConfig;",
    "INSERT INTO LabLineFieldConfig (id, Configuration, Name, NameIndex, Line, LineIndex, Position, Length, "
    "DataType, LookupString, FormatString, Constant, ValidationString, FixedLength, PadChar, PadDirection, "
    "MsgIndex) VALUES (#, ?, ?, #, ?, #, #, #, ?, ?, ?, ?, ?, #, ?, #, #);",
    "UPDATE LabLineFieldConfig SET Configuration = ?, Name = ?, NameIndex = #, Line = ?, LineIndex = #, "
    "Position = #, MsgIndex = #, Length = #, DataType = ?, LookupString = ?, FormatString = ?, Constant = ?, "
    "ValidationString = ?, FixedLength = #, PadChar = ?, PadDirection = # WHERE id = #;"};

class HostileTexts : public StoreTest
{
protected:
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
        expectBoxes({summary("SaveAllLabLineCfg complete", errors, correct),
                     summary("SaveAllLabLineFldsCfg Complete.", errors, correct)});
        EXPECT_EQ(LabLineTable.size(), errors + correct);
        EXPECT_EQ(LabLineFldTable.size(), errors + correct);
    }

    /// Expects that nothing but the fixed pieces and the values between them reached the server.
    static void expectOnlyValues(const QStringList &statements, const QStringList &texts)
    {
        QSet<QString> values{"0", ""};
        for (const QString &text : texts)
            values << text << fieldFullOf(text).Constant << fieldFullOf(text).PadChar;
        QSet<QString> skeletons;
        for (const QString &statement : statements) {
            const TakenApart taken = takeApart(statement);
            skeletons << taken.skeleton;
            for (const QString &text : taken.texts)
                EXPECT_TRUE(values.contains(text)) << qPrintable(statement);
        }
        EXPECT_EQ(skeletons, skeletonsOfSave);
    }
};

} // namespace

ON_EVERY_ENGINE(HostileTexts);

// Fault: a text that ends its literal, is cut, loses or changes a letter, or is lost without an error;
// anything in a statement besides its fixed pieces and its values.
TEST_P(HostileTexts, comeBackEqualOrAreCounted)
{
    QStringList texts = hostileTexts();
    ASSERT_GE(texts.size(), 200);
    save(texts, unsendableTexts());
    save(texts, unsendableTexts()); // finds the rows of the first run and updates them
    if (database.server())
        expectOnlyValues(database.server()->statements(), texts);
    texts.sort();
    for (const QString table : {"LabLineConfig", "LabLineFieldConfig"}) {
        QStringList names = database.rows("SELECT Name FROM " + table);
        names.sort();
        EXPECT_EQ(names, texts) << qPrintable(table);
    }

    emptyStores();
    EXPECT_EQ(LoadAllLabLineData(), 0);
    for (const QString &text : texts) {
        QString configuration = text;
        QString name = text;
        int start = 0;
        EXPECT_GE(FindLabLineConfigIndex(configuration, text, 1, start, 1), 0) << qPrintable(text);
        const int index = FindLabLineFldConfigIndexByName(configuration, name, 0, start, 1);
        ASSERT_GE(index, 0) << qPrintable(text);
        const LabLineFldCfgRecord &loaded = LabLineFldTable[index];
        const LabLineFldCfgRecord saved = fieldFullOf(text);
        EXPECT_EQ((QStringList{loaded.Line, loaded.DataType, loaded.LookupString, loaded.FormatString,
                               loaded.Constant, loaded.PadChar}),
                  (QStringList{saved.Line, saved.DataType, saved.LookupString, saved.FormatString,
                               saved.Constant, saved.PadChar}))
            << qPrintable(text);
    }
}

// Fault: a text that SQL Server would cut, or that is refused without being counted.
TEST_P(HostileTexts, longerThanTheirColumnAreCounted)
{
    const QStringList tooLong{QString(201, u'x'), QString(201, u'\'')};
    const bool refused = GetParam() == Engine::SqlServer; // SQLite's columns have no end
    save(QStringList(QString(200, u'\'')) + (refused ? QStringList() : tooLong),
         refused ? tooLong : QStringList());
}
