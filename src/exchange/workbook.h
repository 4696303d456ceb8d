#pragma once

#include "model/Model.h"

#include <QByteArray>

namespace varnow {

/// A workbook that was made, or why it was not.
struct Workbook
{
    QByteArray contents; ///< of an Excel file (.xlsx)
    QString problem;     ///< as a sentence; empty when all went well
};

/// A workbook of a configuration: a sheet of its lines and one of its fields, each of which can be saved as
/// CSV and imported.
Workbook exportWorkbook(const Model &model, const QString &configuration);

} // namespace varnow
