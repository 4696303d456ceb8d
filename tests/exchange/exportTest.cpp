#include "support/ModelFixture.h"

#include "exchange/description.h"
#include "exchange/workbook.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

namespace varnow::test {

namespace {

struct ExportTest : ModelFixture, testing::Test
{
    ExportTest()
    {
        storeLine(1, "LAB", "<b>PID", 1, 1);
        storeLine(2, "OTHER", "Elsewhere", 0, 1);
        Field formula = field("LAB", "=1+1", 2);
        formula.line = "<b>PID";
        formula.lineIndex = 1;
        formula.constant = "a\x01<&>\"\n007";
        fields.store(formula);
        formula.name = "Fixed";
        formula.fixedLength = formula.position = formula.padDirection = 1;
        formula.characterPosition = 5;
        formula.length = 3;
        formula.padCharacter = "0";
        fields.store(formula);
        fields.store(field("LAB", "Lost", 1));
    }

    /// A part of the workbook, which must be well-formed.
    static QString part(const QString &path, const QString &name)
    {
        QProcess unzip;
        unzip.start("python3", {"-c",
                                "import sys, zipfile; "
                                "sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1]).read(sys.argv[2]))",
                                path, name});
        unzip.waitForFinished();
        const QByteArray bytes = unzip.readAllStandardOutput();
        QXmlStreamReader reader(bytes);
        while (!reader.atEnd())
            reader.readNext();
        EXPECT_FALSE(bytes.isEmpty() || reader.hasError()) << reader.errorString().toStdString();
        return QString::fromUtf8(bytes);
    }
};

} // namespace

TEST_F(ExportTest, MakesAWorkbookOfNumbersAndTextsWithoutFormulas)
{
    const Workbook workbook = exportWorkbook(model, "LAB");
    ASSERT_EQ(workbook.problem, "");
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xlsx");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(workbook.contents) > 0);
    file.close();
    const QString sheet = part(path, "xl/worksheets/sheet2.xml");
    EXPECT_TRUE(sheet.contains("state=\"frozen\""));
    EXPECT_TRUE(sheet.contains("<c r=\"F3\"><v>1</v></c>")); // a message index
    EXPECT_FALSE(sheet.contains("<f>"));
    EXPECT_EQ(sheet.count("<row "), 4);
    EXPECT_TRUE(part(path, "xl/sharedStrings.xml").contains("<t>=1+1</t>"));
    EXPECT_FALSE(part(path, "xl/sharedStrings.xml").contains("Elsewhere"));
    EXPECT_TRUE(part(path, "xl/workbook.xml").contains("name=\"Lines\""));

    Field longText = field("LAB", "Long", 3);
    longText.constant = QString(32768, u'x');
    fields.store(longText);
    EXPECT_TRUE(exportWorkbook(model, "LAB").problem.contains("could not be made"));
}

TEST_F(ExportTest, DescribesTheMessageInEscapedTexts)
{
    QStringList drawn;
    const auto draw = [&](const Line &line, const std::vector<Field> &fieldsOfLine) {
        drawn += line.name;
        for (const Field &field : fieldsOfLine)
            drawn += field.name;
        return Picture{"PNG", 640};
    };
    const QString html = descriptionHtml(model, "LAB", QDate(2025, 3, 9), draw);
    EXPECT_EQ(drawn, QStringList({"<b>PID", "Fixed", "=1+1"}));
    for (const char *const part :
         {"<title>LAB</title>", "9 March 2025. 1 line, 3 fields.", "1. &lt;b&gt;PID(1)",
          "data:image/png;base64,UE5H", "<td>5 to 7</td>", "zeros, aligned right",
          "&lt;&amp;&gt;&quot;<br>007", "Fields without a line"})
        EXPECT_TRUE(html.contains(part)) << part;
    EXPECT_FALSE(html.contains("<b>PID") || html.contains("Elsewhere") || html.contains(QChar(1)));
}

} // namespace varnow::test
