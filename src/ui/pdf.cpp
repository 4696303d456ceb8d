#include "ui/pdf.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>

namespace varnow::ui {

QByteArray pdfOf(const QString &html, const QString &title)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    writer.setTitle(title);
    writer.setPageSize(QPageSize(QPageSize::A4));
    QTextDocument document;
    document.setHtml(html);
    document.print(&writer);
    return file.data();
}

} // namespace varnow::ui
