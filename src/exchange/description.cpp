#include "exchange/description.h"

#include "base/text.h"
#include "model/RecordReference.h"
#include "model/UnsavedChanges.h"

#include <QLocale>

#include <algorithm>

namespace varnow {

namespace {

constexpr QLatin1String beginning(R"(<!DOCTYPE html>
<html>
<head>
<meta charset="utf-8">
<title>%1</title>
<style>
body { font-family: sans-serif; }
table { border-collapse: collapse; }
th, td { border: 1px solid #808080; padding: 3px; text-align: left; vertical-align: top; }
th { background-color: #e8e8e8; }
img { max-width: 100%; }
</style>
</head>
<body>
<h1>%1</h1>
<p>%2. %3</p>
)");

QString escaped(const QString &text)
{
    QString html = text.toHtmlEscaped();
    // HTML has no way to write control characters but tab and line break.
    std::ranges::replace_if(
        html, [](QChar c) { return c < u' ' && c != u'\t' && c != u'\r' && c != u'\n'; }, QChar(0xFFFD));
    html.replace("\r\n", "\n").replace(u'\r', u'\n').replace(u'\n', "<br>");
    return html;
}

QString row(const QStringList &cells, const QString &tag)
{
    QString html = "<tr>";
    for (const QString &cell : cells)
        html += u'<' + tag + u'>' + escaped(cell) + "</" + tag + u'>';
    return html + "</tr>\n";
}

QString paddingOf(const Field &field)
{
    const QString character = field.padCharacter == u' '   ? QStringLiteral("blanks")
                              : field.padCharacter == u'0' ? QStringLiteral("zeros")
                                                           : field.padCharacter;
    return character + (field.padDirection > 0 ? ", aligned right" : ", aligned left");
}

/// The table of a line's fields. The columns of fixed-length fields are there only if it has some.
QString tableOf(const std::vector<Field> &fields, bool hasFixedLength)
{
    QStringList header{"Position", "Field", "Lookup", "Format", "Constant"};
    if (hasFixedLength)
        header += {"Characters", "Length", "Padding"};
    QString html =
        "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\" width=\"100%\">\n" + row(header, "th");
    for (const Field &field : fields) {
        QStringList cells{QString::number(field.position), nameOf(field.name, field.nameIndex), field.lookup,
                          field.format, field.constant};
        if (hasFixedLength && field.fixedLength == 0)
            cells += {"", "", ""};
        if (hasFixedLength && field.fixedLength != 0) {
            const qint64 last = qint64(field.characterPosition) + field.length - 1;
            cells += {QStringLiteral("%1 to %2").arg(field.characterPosition).arg(last),
                      QString::number(field.length), paddingOf(field)};
        }
        html += row(cells, "td");
    }
    return html + "</table>\n";
}

QString sectionOf(const Line &line, const std::vector<Field> &fields, const PictureOf &pictureOf)
{
    QString html = "<h2>" + QString::number(line.messageIndex) + ". " +
                   escaped(nameOf(line.name, line.nameIndex)) + "</h2>\n";
    if (fields.empty())
        return html + "<p>This line has no fields.</p>\n";
    const bool hasFixedLength = std::ranges::any_of(
        fields, [](int n) { return n != 0; }, &Field::fixedLength);
    const Picture picture = hasFixedLength && pictureOf ? pictureOf(line, fields) : Picture();
    if (!picture.png.isEmpty())
        html += QStringLiteral("<p><img alt=\"The fields of the line by their characters\" width=\"%1\" "
                               "src=\"data:image/png;base64,%2\"></p>\n")
                    .arg(QString::number(picture.width), QString::fromLatin1(picture.png.toBase64()));
    return html + tableOf(fields, hasFixedLength);
}

} // namespace

QString descriptionHtml(const Model &model, const QString &configuration, QDate date,
                        const PictureOf &pictureOf)
{
    std::vector<Line> lines;
    std::ranges::copy(model.lines.ofConfiguration(configuration), std::back_inserter(lines));
    std::ranges::stable_sort(lines, {}, &Line::messageIndex);
    QHash<RecordKey, std::vector<Field>> fieldsOfLine;
    std::size_t fieldCount = 0;
    for (const Field &field : model.fields.ofConfiguration(configuration)) {
        ++fieldCount;
        fieldsOfLine[{{}, field.line, field.lineIndex}].push_back(field);
    }
    for (auto &fields : fieldsOfLine)
        std::ranges::stable_sort(fields, {}, &Field::position);

    QString html = QString(beginning).arg(
        escaped(configuration), escaped(QLocale::c().toString(date, "d MMMM yyyy")),
        counted(qint64(lines.size()), "line") + ", " + counted(qint64(fieldCount), "field") + u'.');
    for (const Line &line : lines)
        html += sectionOf(line, fieldsOfLine.take({{}, line.name, line.nameIndex}), pictureOf);
    if (!fieldsOfLine.isEmpty()) {
        std::vector<Field> others;
        for (const auto &fields : std::as_const(fieldsOfLine))
            std::ranges::copy(fields, std::back_inserter(others));
        std::ranges::sort(others, {}, &Field::name);
        html += "<h2>Fields without a line</h2>\n" + tableOf(others, false);
    }
    return html + "</body>\n</html>\n";
}

} // namespace varnow
