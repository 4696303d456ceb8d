#pragma once

#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/TextBox.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace varnow {

/// The entries of a page: what stands in them, and what is chosen.
class PageEntries
{
public:
    /// An entry was typed in, chosen or filled.
    std::function<void()> onEntered;

    /// Each adds an entry, which tells what is entered from now on. A text box loses the blanks around its
    /// text when it is left.
    void add(ui::TextBox &box);
    void add(ui::ComboBox &box);
    void add(ui::OptionButton &option);
    void add(ui::CheckBox &box);

    /// Lets the text boxes lose the blanks around their texts, also the one that has the focus.
    void trim();

    /// A text for each entry, in the order of adding.
    QStringList texts() const;
    void setTexts(const QStringList &texts);

    void tellEntered() const;

private:
    /// The text of an entry, or whether it is chosen.
    struct Value
    {
        std::function<QString()> text;
        std::function<void(const QString &)> setText;
    };

    template <class Box> void keepText(Box &box);

    std::vector<Value> m_values;
    std::vector<ui::TextBox *> m_textBoxes;
};

} // namespace varnow
