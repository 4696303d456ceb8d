#pragma once

#include "model/Edit.h"

#include <list>

namespace varnow {

/// The steps that can be undone and made again. A step keeps its address until it can be neither.
class History
{
public:
    /// The step that undo() takes back, or redo() makes again; null without one.
    const EditStep *undoable() const { return m_done.empty() ? nullptr : &m_done.back(); }
    const EditStep *redoable() const { return m_undone.empty() ? nullptr : &m_undone.back(); }

    /// Adds a step that was done just now. What was undone before can no longer be made again.
    const EditStep &add(EditStep step);

    /// Each changes the model, which must stand as the last step left it but for saves, and returns the step;
    /// null, and nothing is done, without one.
    const EditStep *undo(Model &model);
    const EditStep *redo(Model &model);

    void clear();

private:
    std::list<EditStep> m_done;   // the last step last
    std::list<EditStep> m_undone; // the one to redo first last
};

} // namespace varnow
