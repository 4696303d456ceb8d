#pragma once

#include "model/Model.h"

#include <QString>

namespace varnow {

/// What copying a configuration into another one meets, of lines or of fields.
struct CopyCount
{
    int source = 0; ///< records to copy
    int target = 0; ///< records that the target holds already
    int equal = 0;  ///< of those to copy, whose key the target has, too
};

/// What becomes of a record of the target whose key the source has, too.
enum class EqualKeys { Replace, Skip };

CopyCount countLinesToCopy(const Model &model, const QString &source, const QString &target);
CopyCount countFieldsToCopy(const Model &model, const QString &source, const QString &target);

/// Copies the lines and fields of a configuration into another one, in their order. The copied lines keep
/// their message indexes or, where a line that stays has one of these, all come behind those that stay; the
/// fields of the target follow their lines. To be called within an edit. Nothing happens where source and
/// target are one.
void copyConfiguration(Model &model, const QString &source, const QString &target, EqualKeys equalKeys);

} // namespace varnow
