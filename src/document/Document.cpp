#include "document/Document.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "storage/load.h"

#include <algorithm>

namespace varnow {

namespace {

constexpr int untilKept = 500; // milliseconds from a change until it is in the recovery file

template <class Record>
void drop(std::vector<UnsavedChange<Record>> &conflicts, const std::vector<UnsavedChange<Record>> &dropped)
{
    std::erase_if(conflicts, [&dropped](const UnsavedChange<Record> &conflict) {
        const auto isIt = [&](const UnsavedChange<Record> &other) {
            return keyOf(other.record()) == keyOf(conflict.record());
        };
        return std::ranges::any_of(dropped, isIt);
    });
}

} // namespace

Document::Document(const Session &session) : m_session(session), m_recovery(session.configurationDatabase)
{
    m_recoveryTimer.setSingleShot(true);
    m_recoveryTimer.setInterval(untilKept);
    m_recoveryTimer.callOnTimeout(this, [this] { keepUnsavedChanges(); });
}

Document::~Document() = default;

void Document::showConfiguration(const QString &name)
{
    m_configuration = trim(name);
    Q_EMIT configurationChanged();
}

bool Document::edit(const EditLabel &label, const std::function<void(Edit &)> &change)
{
    if (m_edit != nullptr) {
        change(*m_edit);
        return true;
    }
    EditStep step;
    {
        Edit edit(m_model, label);
        m_edit = &edit;
        const auto finish = [&] {
            m_edit = nullptr;
            step = edit.finish();
        };
        try {
            change(edit);
        } catch (...) {
            finish();
            take(std::move(step)); // what was done before the error stays, and can be undone
            throw;
        }
        finish();
    }
    const bool hasChanged = !step.isEmpty();
    take(std::move(step));
    return hasChanged;
}

void Document::take(EditStep step)
{
    if (!step.isEmpty())
        tellChanged(m_history.add(std::move(step)));
}

void Document::undo()
{
    if (const EditStep *step = m_history.undo(m_model))
        tellChanged(*step);
}

void Document::redo()
{
    if (const EditStep *step = m_history.redo(m_model))
        tellChanged(*step);
}

void Document::tellChanged(const EditStep &step)
{
    m_isGivenUp = false;
    if (!m_recoveryTimer.isActive()) // else one change after the other would put it off
        m_recoveryTimer.start();
    Q_EMIT changed(step);
}

int Document::load(Run &run)
{
    m_history.clear();
    const int code = loadAll(run, m_model);
    Q_EMIT loaded(code);
    return code;
}

int Document::reload(RunObserver &observer)
{
    Run run(m_session.configurationDatabase, observer);
    const int code = load(run);
    keepUnsavedChanges();
    return code;
}

SaveReport Document::save(RunObserver &observer)
{
    SaveReport report{m_model.countUnsaved(), saveAll(m_session.configurationDatabase, m_model, observer)};
    if (report.result.code == 0 || report.result.code == errors::UserInterrupt)
        adoptIds(m_session.configurationDatabase, m_model, observer);
    keepUnsavedChanges();
    report.unsaved = m_model.countUnsaved().total();
    Q_EMIT saved(report);
    return report;
}

bool Document::keepUnsavedChanges()
{
    m_recoveryTimer.stop();
    if (m_isGivenUp || m_recovery.write(m_model, m_conflicts))
        return true;
    Q_EMIT keepingFailed();
    return false;
}

void Document::giveUpUnsavedChanges()
{
    m_recoveryTimer.stop();
    m_recovery.remove();
    m_isGivenUp = true;
}

LeftChanges Document::restore(const LeftChanges &left)
{
    LeftChanges refused;
    edit({QStringLiteral("bringing back of the changes of an earlier run")},
         [&](Edit &edit) { refused = varnow::restore(left, edit.model()); });
    m_conflicts.lines.insert(m_conflicts.lines.end(), refused.lines.begin(), refused.lines.end());
    m_conflicts.fields.insert(m_conflicts.fields.end(), refused.fields.begin(), refused.fields.end());
    return refused;
}

void Document::reapply(const LeftChanges &conflicts)
{
    const auto count = qint64(conflicts.lines.size()) + qint64(conflicts.fields.size());
    drop(m_conflicts.lines, conflicts.lines);
    drop(m_conflicts.fields, conflicts.fields);
    const QString changes = counted(count, "change");
    edit({"taking over of " + changes, "Taken over: " + changes + '.'}, [&](Edit &edit) {
        for (const auto &change : conflicts.lines)
            edit.reapply(change);
        for (const auto &change : conflicts.fields)
            edit.reapply(change);
    });
}

} // namespace varnow
