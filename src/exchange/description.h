#pragma once

#include "model/Model.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <functional>

namespace varnow {

/// A picture, or none.
struct Picture
{
    QByteArray png;
    int width = 0; ///< shown, in pixels of which 96 make an inch
};

/// Draws the record of a line that has fixed-length fields, which come in the order of their positions.
using PictureOf = std::function<Picture(const Line &line, const std::vector<Field> &fields)>;

/// A configuration's lines and fields for people to read, as HTML simple enough for QTextDocument: title,
/// date, and for each line in the order of the message a table of its fields, with a picture where one is
/// drawn. Fields without a line stand at the end.
QString descriptionHtml(const Model &model, const QString &configuration, QDate date,
                        const PictureOf &pictureOf);

} // namespace varnow
