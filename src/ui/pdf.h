#pragma once

#include <QByteArray>
#include <QString>

namespace varnow::ui {

/// A PDF file of pages in A4 that show an HTML document. `title`: what readers name the document.
QByteArray pdfOf(const QString &html, const QString &title);

} // namespace varnow::ui
