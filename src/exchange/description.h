#pragma once

#include "model/Model.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <functional>

namespace varnow {

/// Draws the record of a line that has fixed-length fields: the bytes of a PNG picture, empty for none. The
/// fields come in the order of their positions.
using PictureOf = std::function<QByteArray(const Line &line, const std::vector<Field> &fields)>;

/// A configuration's lines and fields for people to read, as HTML simple enough for QTextDocument: title,
/// date, and for each line in the order of the message a table of its fields, with a picture where one is
/// drawn. Fields without a line stand at the end.
QString descriptionHtml(const Model &model, const QString &configuration, QDate date,
                        const PictureOf &pictureOf);

} // namespace varnow
