#pragma once

#include "db/ConnectionSettings.h"
#include "storage/schemaVersion.h"
#include "ui/Button.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/TextBox.h"
#include "ui/Window.h"

namespace varnow {

/// What came of a sign-in.
struct SignIn
{
    enum class Outcome {
        Accepted,
        Canceled,
        Unreadable, ///< the schema version of the configuration database could not be read
    };

    Outcome outcome = Outcome::Canceled;
    db::ConnectionSettings settings; ///< as they were typed
};

/// The modal dialog that asks for what leads to one database and has its schema version judged. Sizes in
/// twips.
class SignInDialog : public ui::Window
{
public:
    explicit SignInDialog(DatabaseRole role);

    /// Shows the dialog and waits until it is closed.
    SignIn ask();

private:
    using TextBox = ui::Labelled<ui::TextBox>;

    void addToolTips();
    void proposeEntries();
    void fillDevelopmentValues();
    ui::CloseDecision accept();
    bool isComplete();

    const DatabaseRole m_role;
    SignIn m_result;
    bool m_isCanceled = false;

    ui::Panel m_panel{*this, "panel", {112, 120, 3525, 3045}};
    TextBox m_server{m_panel, "server", "Database Server:", {135, 105, 3255, 225}, {135, 345, 3255, 285}};
    TextBox m_database{m_panel, "database", "Database:", {135, 825, 3255, 225}, {135, 1065, 3255, 285}};
    TextBox m_user{m_panel, "user", "Username:", {135, 1545, 3255, 225}, {135, 1785, 3255, 285}};
    TextBox m_password{m_panel, "password", "Password:", {135, 2265, 3255, 225}, {135, 2505, 3255, 285}};
    ui::CommandButton m_cancel{*this, "cancel", "&Cancel", {112, 3277, 1515, 765}};
    ui::CommandButton m_login{*this, "login", "&Login", {2122, 3277, 1515, 765}};
};

} // namespace varnow
