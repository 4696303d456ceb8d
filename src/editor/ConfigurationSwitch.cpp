#include "editor/ConfigurationSwitch.h"

#include "base/text.h"
#include "ui/Application.h"

#include <utility>

namespace varnow {

ConfigurationSwitch::ConfigurationSwitch(ui::ComboBox &box, RecordTree &tree, EntryPages &pages,
                                         Document &document)
    : m_box(box), m_tree(tree), m_pages(pages), m_document(document)
{
    m_box.onChange = m_box.onClick = [this] { takeText(); };
    m_box.onTypingPaused = [this] { tellProblems(); };
    QObject::connect(&document, &Document::configurationChanged, &document, [this] { follow(); });
    QObject::connect(&document, &Document::changed, &document,
                     [this](const EditStep &step) { tell(m_tree.follow(step)); });
}

void ConfigurationSwitch::takeText()
{
    m_isFromBox = !m_isFollowing;
    m_document.showConfiguration(m_box.text());
    m_isFromBox = false;
}

void ConfigurationSwitch::follow()
{
    if (trim(m_box.text()) != m_document.configuration()) {
        m_isFollowing = true;
        m_box.setText(m_document.configuration()); // which comes here again
        m_isFollowing = false;
        return;
    }
    const ui::Hourglass hourglass;
    m_problems.clear();
    m_treeHasBoxes = false;
    if (m_document.configuration().isEmpty())
        return;
    const bool isTyped = m_box.isBeingTyped(); // a box would take the next keys
    rebuildTree(isTyped ? RecordTree::Boxes::HeldBack : RecordTree::Boxes::Shown);
    const auto take = [this](const std::optional<ui::MessageBox> &problem) {
        if (problem)
            m_problems.push_back(*problem);
    };
    m_pages.replace([&] {
        const std::optional<ui::MessageBox> problem = m_pages.lines().showFirst();
        m_pages.lines().settleEntries();
        if (m_isFromBox) // else the user knows that it may be empty
            take(problem);
    });
    m_pages.fields().listLines();
    take(m_pages.fields().listDataFields());
    if (m_pages.onShown)
        m_pages.onShown();
    if (!isTyped)
        tellProblems();
}

void ConfigurationSwitch::rebuildTree(RecordTree::Boxes boxes)
{
    const RecordTree::Unshown unshown = m_tree.rebuild(m_document.configuration(), boxes);
    m_tree.showFirst();
    if (boxes == RecordTree::Boxes::Shown)
        tell(unshown);
    else
        m_treeHasBoxes = unshown != RecordTree::Unshown();
}

void ConfigurationSwitch::tell(const RecordTree::Unshown &unshown) const
{
    if (unshown != RecordTree::Unshown() && onUnshown)
        onUnshown(unshown);
}

void ConfigurationSwitch::tellProblems()
{
    if (std::exchange(m_treeHasBoxes, false))
        rebuildTree(RecordTree::Boxes::Shown);
    for (const ui::MessageBox &problem : std::exchange(m_problems, {}))
        ui::show(problem);
}

bool ConfigurationSwitch::hasConfiguration() const
{
    if (!m_document.configuration().isEmpty())
        return true;
    ui::show(
        {"There is no configuration selected." + lineBreak + "Please select or enter a configuration first.",
         "Data Checking", ui::Icon::Critical});
    return false;
}

void ConfigurationSwitch::listConfigurations()
{
    m_box.setText("");
    m_box.clear();
    for (const QString &name : m_document.session().configurationNames)
        m_box.addItem(name);
}

void ConfigurationSwitch::refresh()
{
    const ui::Hourglass hourglass;
    m_box.setText("");
    const int index = m_box.findItem(m_document.session().defaultConfiguration, ui::ItemMatch::Whole);
    if (index >= 0)
        m_box.setText(m_box.itemText(index));
    m_tree.showFirst();
}

} // namespace varnow
