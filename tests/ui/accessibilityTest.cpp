// What assistive tools are told.

#include "support/Driver.h"

#include "ui/ComboBox.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

#include <QAccessible>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace varnow::test {

namespace {

QStringList &heard()
{
    static QStringList texts;
    return texts;
}

/// Stands where the assistive tools do and writes down the texts they are told of.
void hear(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::TextInserted)
        heard() += "+" + static_cast<QAccessibleTextInsertEvent *>(event)->textInserted();
    if (event->type() == QAccessible::TextRemoved)
        heard() += "-" + static_cast<QAccessibleTextRemoveEvent *>(event)->textRemoved();
    if (event->type() == QAccessible::TextUpdated)
        heard() += "=" + static_cast<QAccessibleTextUpdateEvent *>(event)->textInserted();
    if (event->type() == QAccessible::TextCaretMoved)
        heard() += "caret";
}

struct Form : ui::Window
{
    Form() : ui::Window("form", "Form", 4000, 2000) { password.setPassword(true); }

    ui::Labelled<ui::TextBox> user{*this, "user", "Username:", {0, 0, 1000, 300}, {1000, 0, 1500, 315}};
    ui::Labelled<ui::TextBox> password{
        *this, "password", "Password:", {0, 400, 1000, 300}, {1000, 400, 1500, 315}};
    ui::Labelled<ui::ComboBox> server{
        *this, "server", "Server:", {0, 800, 1000, 300}, {1000, 800, 1500, 315}};
};

} // namespace

// The events are made here as a line edit makes them, for it makes none while no tool listens.
TEST(AccessibilityTest, TellsNobodyWhatAPasswordIs)
{
    QAccessible::installUpdateHandler(hear);
    Form form;
    const Driver user(form);
    form.password.setPassword(true); // a second time: the listener stays behind it
    const QAccessible::UpdateHandler handler = QAccessible::installUpdateHandler(nullptr);
    const auto tell = [&](const QString &name) {
        QWidget *box = user.control(name);
        QAccessibleTextInsertEvent typed(box, 0, "s3cret");
        QAccessibleTextRemoveEvent deleted(box, 0, "s3cret");
        QAccessibleTextUpdateEvent replaced(box, 0, "s3cret", "other");
        QAccessibleTextCursorEvent moved(box, 1);
        for (QAccessibleEvent *event :
             std::initializer_list<QAccessibleEvent *>{&typed, &deleted, &replaced, &moved})
            handler(event);
        return std::exchange(heard(), {});
    };
    EXPECT_EQ(tell("user"), QStringList({"+s3cret", "-s3cret", "=other", "caret"}));
    EXPECT_EQ(tell("password"), QStringList({"caret"}));
    form.password.setText("other");
    auto *box = QAccessible::queryAccessibleInterface(user.control("password"));
    EXPECT_EQ(box->textInterface()->text(0, 5), "");
    EXPECT_FALSE(box->text(QAccessible::Value).contains(u'o'));
}

TEST(AccessibilityTest, CallsEveryControlByItsLabel)
{
    Form form;
    const Driver user(form);
    form.server.addItem("north");
    form.server.setSelectedIndex(0);
    const auto of = [](QObject *object) { return QAccessible::queryAccessibleInterface(object); };
    for (const auto &[name, label] : {std::pair("user", "Username:"), std::pair("server", "Server:")}) {
        const auto *control = of(user.control(name));
        EXPECT_EQ(control->text(QAccessible::Name), label);
        ASSERT_EQ(control->relations(QAccessible::Label).size(), 1);
        EXPECT_EQ(control->relations(QAccessible::Label).first().first->text(QAccessible::Name), label);
    }
    auto *box = of(user.control("server"));
    EXPECT_EQ(box->role(), QAccessible::ComboBox);
    EXPECT_EQ(box->text(QAccessible::Value), "north");
    ASSERT_EQ(box->childCount(), 2);
    EXPECT_EQ(box->child(0)->child(0)->text(QAccessible::Name), "north");
    EXPECT_EQ(box->child(1)->text(QAccessible::Name), "Server:");
    EXPECT_EQ(box->indexOfChild(box->child(1)), 1);
    EXPECT_EQ(box->child(1)->parent(), box);
    EXPECT_EQ(of(form.surface()->window())->role(), QAccessible::Window);
    EXPECT_EQ(of(form.surface()->window())->text(QAccessible::Name), "Form");
}

} // namespace varnow::test
