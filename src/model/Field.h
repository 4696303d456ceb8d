#pragma once

#include "model/Column.h"

#include <span>

namespace varnow {

/// One field of a line. In memory its key is configuration, name and nameIndex; it belongs to the line whose
/// configuration, name and nameIndex equal its configuration, line and lineIndex.
struct Field
{
    int id = 0; ///< of its row; 0 or -1 while it is not known to have one
    QString configuration;
    QString name;
    int nameIndex = 0; ///< tells apart the fields of one name
    QString line;
    int lineIndex = 0;
    int messageIndex = 0; ///< copy of the owning line's
    int position = 0;     ///< place within the line: 1, 2, 3 …
    int length = 0;       ///< characters
    QString dataType;
    QString lookup; ///< name of the data field that fills this one
    QString format;
    QString constant;
    int characterPosition = 0; ///< of a fixed-length field within the line
    int fixedLength = 0;       ///< 1 for a fixed-length field, else 0
    QString padCharacter;      ///< one blank or "0" for a fixed-length field, else empty
    int padDirection = 0;      ///< 1 right, -1 left, 0 for a field that is not fixed-length

    /// All columns, in the order of the statements.
    static std::span<const Column<Field>> columns();
};

} // namespace varnow
