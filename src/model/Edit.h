#pragma once

#include "model/Model.h"

#include <QString>

namespace varnow {

/// What an edit does: in the menu, and in the notice behind it.
struct EditLabel
{
    QString what = {}; ///< as part of a sentence: "import of 12 records"; empty for what its one record tells
    QString sentence = {}; ///< what the notice says; empty for what the changes tell
};

/// How a step came about.
enum class StepKind { Done, Undone, Redone };

/// One action of the user: all that it changed.
struct EditStep
{
    EditLabel label = {};
    StepKind kind = StepKind::Done;
    Changes<Line> lines = {};
    Changes<Field> fields = {};

    bool isEmpty() const { return lines.empty() && fields.empty(); }

    /// What it did, as part of a sentence: "change of line NTE(1)".
    QString text() const;
};

/// While such an object lives, the records of a model can be changed, and every change is written down.
class Edit
{
public:
    /// `model` must outlive the edit.
    explicit Edit(Model &model, const EditLabel &label = {});
    ~Edit();
    Edit(const Edit &) = delete;
    Edit &operator=(const Edit &) = delete;

    Model &model() { return m_model; }
    LineTable &lines;
    FieldTable &fields;

    /// Makes a record what its row holds again.
    void revert(const UnsavedChange<Line> &change);
    void revert(const UnsavedChange<Field> &change);

    /// Makes a change left by an earlier run, whatever the record is now.
    void reapply(const UnsavedChange<Line> &change);
    void reapply(const UnsavedChange<Field> &change);

    /// Ends the edit. Returns what it changed.
    EditStep finish();

private:
    Model &m_model;
    EditStep m_step;
};

} // namespace varnow
