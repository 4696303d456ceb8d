#pragma once

#include "document/Document.h"
#include "model/copyConfiguration.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/Label.h"
#include "ui/Window.h"

#include <optional>

namespace varnow {

/// Asks for the name of a configuration: of a new one, or of that into which the shown one is copied. Sizes
/// in twips.
class TargetWindow : public ui::Window
{
public:
    enum class Purpose { New, Copy };

    struct Target
    {
        QString configuration;                    ///< trimmed, not empty
        EqualKeys equalKeys = EqualKeys::Replace; ///< when copying
    };

    TargetWindow(const Document &document, Purpose purpose);

    /// Shows the window. Returns nothing when the user wants none.
    std::optional<Target> ask();

private:
    void followName();
    void accept(EqualKeys equalKeys);

    const Document &m_document;
    const Purpose m_purpose;
    std::optional<Target> m_target;

    ui::Labelled<ui::ComboBox> m_name{
        *this, "target", "Configuration", {120, 180, 1300, 195}, {1500, 120, 3400, 315}};
    ui::Label m_holds{*this, "holds", "", {120, 600, 5400, 195}};
    ui::Label m_equal{*this, "equal", "", {120, 880, 5400, 195}};
    ui::CommandButton m_accept{*this, "accept", "&OK", {120, 1250, 1700, 500}};
    ui::CommandButton m_skip{*this, "skip", "&Skip", {1920, 1250, 1700, 500}};
    ui::CommandButton m_cancel{*this, "cancel", "Cancel", {3720, 1250, 1700, 500}};
};

} // namespace varnow
