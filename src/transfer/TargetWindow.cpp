#include "transfer/TargetWindow.h"

#include "base/text.h"

namespace varnow {

namespace {

QString counts(int lines, int fields)
{
    return counted(lines, "line") + " and " + counted(fields, "field");
}

} // namespace

TargetWindow::TargetWindow(const Document &document, Purpose purpose)
    : ui::Window("target", purpose == Purpose::New ? "New Configuration" : "Copy Configuration", 5520, 1870,
                 Border::FixedDialog)
    , m_document(document)
    , m_purpose(purpose)
{
    for (const QString &name : document.session().configurationNames)
        m_name.addItem(name);
    const bool isCopy = purpose == Purpose::Copy;
    if (isCopy)
        m_accept.setCaption("&Replace");
    m_name.setToolTip(isCopy ? "The configuration that takes the copy; choose it or type a new name."
                             : "The configuration to be shown; type a new name or choose one.");
    m_accept.setToolTip(isCopy ? "Copies all lines and fields, also over those of equal name and index."
                               : "Shows this configuration.");
    m_skip.setToolTip("Copies the lines and fields that have no equal of the same name and index.");
    m_cancel.setToolTip("Closes this window and changes nothing.");
    m_skip.setEnabled(isCopy);
    m_accept.setDefault();
    m_cancel.setCancel();
    setFocusOrder({&m_name, &m_accept, &m_skip, &m_cancel});
    m_name.onChange = m_name.onClick = [this] { followName(); };
    m_accept.onClick = [this] { accept(EqualKeys::Replace); };
    m_skip.onClick = [this] { accept(EqualKeys::Skip); };
    m_cancel.onClick = [this] { unload(); };
    followName();
}

std::optional<TargetWindow::Target> TargetWindow::ask()
{
    showModal();
    return m_target;
}

/// Counts what the named configuration holds.
void TargetWindow::followName()
{
    const QString target = trim(m_name.text());
    const QString source = m_document.configuration();
    const bool isItself = m_purpose == Purpose::Copy && target == source;
    m_accept.setEnabled(!target.isEmpty() && !isItself);
    m_skip.setEnabled(m_purpose == Purpose::Copy && m_accept.isEnabled());
    const CopyCount lines = countLinesToCopy(m_document.model(), source, target);
    const CopyCount fields = countFieldsToCopy(m_document.model(), source, target);
    m_holds.setCaption(target.isEmpty() ? QString()
                       : isItself       ? QStringLiteral("This is the configuration that is copied.")
                                        : "It holds " + counts(lines.target, fields.target) + '.');
    m_equal.setCaption(m_skip.isEnabled() && lines.equal + fields.equal > 0
                           ? "Replace or skip " + counts(lines.equal, fields.equal) +
                                 " of equal name and index?"
                           : QString());
}

void TargetWindow::accept(EqualKeys equalKeys)
{
    m_target = {trim(m_name.text()), equalKeys};
    unload();
}

} // namespace varnow
