#pragma once

#include "model/Model.h"
#include "storage/Session.h"
#include "ui/ComboBox.h"

#include <functional>
#include <vector>

namespace varnow {

class EntryPage;

/// What the parts of the editor share while its window lives.
struct EditorState
{
    Session &session;
    Model &model;
    const ui::ComboBox &configurationBox;

    bool changesMade = false;                  ///< something was entered since the last load or save
    std::vector<EntryPage *> pages = {};       ///< in the order of their tabs
    std::function<void()> onLinesChanged = {}; ///< lines were stored or removed

    /// The configuration that is edited, as it was chosen or typed.
    QString configuration() const { return configurationBox.text(); }
};

} // namespace varnow
