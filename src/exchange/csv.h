#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace varnow {

/// The rows of a CSV file.
struct CsvTable
{
    std::vector<QStringList> rows; ///< without the empty ones; none where there is a problem
    QString problem;               ///< why the file cannot be read, as a sentence; empty when it can
    bool isWindows1252 = false;    ///< it is no UTF-8 and was taken for Windows-1252
};

/// Reads a CSV file (RFC 4180): UTF-8 or else Windows-1252, delimited by commas, semicolons or tabs,
/// whichever its first row has most of.
CsvTable readCsv(const QByteArray &contents);

/// A CSV file of these rows: UTF-8 with a mark, by which spreadsheets know it, delimited by commas.
QByteArray writeCsv(const std::vector<QStringList> &rows);

} // namespace varnow
