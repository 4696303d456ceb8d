#pragma once

#include "model/Field.h"
#include "model/Line.h"
#include "model/LineChoice.h"

#include <QStringList>

// Records as they are entered, before their texts are known to be right: on a page or in a file.

namespace varnow {

/// What was entered for a line. The name index is "0" where none was given.
struct LineDraft
{
    QString configuration;
    QString name;
    QString nameIndex;
    QString messageIndex;
};

/// What was entered for a field. The name index is "0" where none was given.
struct FieldDraft
{
    QString configuration;
    QString name;
    QString nameIndex;
    LineChoice line;
    QString messageIndex;
    QString lookup;
    QString format;
    QString constant;
    QString position;
    bool isFixedLength = false;
    QString length;
    QString characterPosition; ///< this and what follows counts for a fixed-length field only
    QString padCharacter;
    int padDirection = 0;
};

/// Everything that is wrong with an entry, in the words that the user reads.
QStringList validate(const LineDraft &entry);
QStringList validate(const FieldDraft &entry);

/// The record that an entry makes about which there is no problem.
Line lineOf(const LineDraft &entry);
Field fieldOf(const FieldDraft &entry);

} // namespace varnow
