#pragma once

#include "model/FieldTable.h"
#include "model/LineTable.h"

#include <QHash>

#include <cstddef>
#include <vector>

namespace varnow {

/// One action of the user: all that it changed.
struct EditStep
{
    QString what; ///< what it did where that is more than to one record, as part of a sentence
    Changes<Line> lines;
    Changes<Field> fields;

    bool isEmpty() const { return lines.empty() && fields.empty(); }
};

/// What a step did, as part of a sentence: "change of line NTE(1)".
QString textOf(const EditStep &step);

/// Everything that the editor edits: the lines and fields of all configurations, and what was done to them.
class Model
{
public:
    LineTable lines;
    FieldTable fields;

    /// Copies every line's message index into its fields. Fields without a line keep theirs. Configurations
    /// in which nothing was changed since the last time are passed over.
    void copyMessageIndexesToFields();

    /// Makes a record what its row holds again.
    void revert(const UnsavedChange<Line> &entry);
    void revert(const UnsavedChange<Field> &entry);

    /// Makes a record what a change left by an earlier run makes of it, whatever it is now.
    void reapply(const UnsavedChange<Line> &entry);
    void reapply(const UnsavedChange<Field> &entry);

    /// True when some record differs from its row.
    bool hasUnsavedChanges() const { return !lines.unsaved.isEmpty() || !fields.unsaved.isEmpty(); }

    /// True when the next save has a row to delete, also one that never was a record in memory.
    bool hasRowsToDelete() const { return lines.hasRowsToDelete() || fields.hasRowsToDelete(); }

    ChangeCounts countUnsaved() const;

    /// The step that undo() takes back, or redo() makes again; null without one.
    const EditStep *undoable() const { return m_done.empty() ? nullptr : &m_done.back(); }
    const EditStep *redoable() const { return m_undone.empty() ? nullptr : &m_undone.back(); }

    /// Number of steps that can be undone.
    std::size_t stepCount() const { return m_done.size(); }

    /// Each returns the step. To be called only where there is one.
    const EditStep &undo();
    const EditStep &redo();

    /// What was done so far can no longer be undone.
    void forgetHistory();

private:
    friend class Editing;

    QHash<QString, quint64> m_lineStates; // when message indexes were copied last
    QHash<QString, quint64> m_fieldStates;
    std::vector<EditStep> m_done;   // the last step last
    std::vector<EditStep> m_undone; // the one to redo first last
};

/// While such an object lives, what is done to a model becomes one step of its history. A step that changes
/// nothing leaves no trace.
class Editing
{
public:
    /// `what`: what is done where that is more than to one record, as part of a sentence: "import of 12
    /// rows".
    explicit Editing(Model &model, const QString &what = {});
    ~Editing();
    Editing(const Editing &) = delete;
    Editing &operator=(const Editing &) = delete;

private:
    Model &m_model;
    EditStep m_step;
};

} // namespace varnow
