#include "editor/PageEntries.h"

#include "base/text.h"

namespace varnow {

namespace {

const QString chosen = QStringLiteral("chosen");

void trimText(ui::TextBox &box)
{
    box.setText(varnow::trim(box.text()));
}

} // namespace

template <class Box> void PageEntries::keepText(Box &box)
{
    m_values.push_back({[&box] { return box.text(); }, [&box](const QString &text) { box.setText(text); }});
}

void PageEntries::add(ui::TextBox &box)
{
    keepText(box);
    m_textBoxes.push_back(&box);
    box.onLostFocus = [&box] { trimText(box); };
    box.onChange = [this] { tellEntered(); };
}

void PageEntries::add(ui::ComboBox &box)
{
    keepText(box);
    box.onChange = box.onClick = [this] { tellEntered(); };
}

void PageEntries::add(ui::OptionButton &option)
{
    m_values.push_back({[&option] { return option.isChosen() ? chosen : QString(); },
                        [&option](const QString &text) {
                            if (text == chosen)
                                option.choose();
                        }});
    option.onClick = [this] { tellEntered(); };
}

void PageEntries::add(ui::CheckBox &box)
{
    m_values.push_back({[&box] { return box.isTicked() ? chosen : QString(); },
                        [&box](const QString &text) { box.setTicked(text == chosen); }});
}

void PageEntries::tellEntered() const
{
    if (onEntered)
        onEntered();
}

void PageEntries::trim()
{
    for (ui::TextBox *box : m_textBoxes)
        trimText(*box);
}

QStringList PageEntries::texts() const
{
    QStringList texts;
    for (const Value &value : m_values)
        texts += value.text();
    return texts;
}

void PageEntries::setTexts(const QStringList &texts)
{
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_values[i].setText(texts[static_cast<qsizetype>(i)]);
}

} // namespace varnow
