#include "document/Document.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "storage/load.h"

#include <algorithm>

namespace varnow {

namespace {

constexpr int untilEnded = 30'000; // milliseconds in which a program ends that is to end

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

Document::Document(const Session &session)
    : m_session(session)
    , m_journal(session.configurationDatabase,
                [this](const QString &problem) { // in the journal's thread
                    if (!problem.isEmpty())
                        QMetaObject::invokeMethod(this, [this] { Q_EMIT keepingFailed(); });
                })
{
    m_unlessEnded.setSingleShot(true);
    m_unlessEnded.setInterval(untilEnded);
    m_unlessEnded.callOnTimeout(this, [this] { // the end was called off
        m_isGivenUp = false;
        m_journal.rewrite(m_model, m_conflicts);
    });
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
    m_unlessEnded.stop();
    m_journal.note(m_model, step);
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
    m_isGivenUp = false;
    m_unlessEnded.stop();
    m_journal.rewrite(m_model, m_conflicts);
    return code;
}

SaveReport Document::save(RunObserver &observer)
{
    SaveReport report{m_model.countUnsaved(), saveAll(m_session.configurationDatabase, m_model, observer)};
    if (report.result.code == 0 || report.result.code == errors::UserInterrupt)
        adoptIds(m_session.configurationDatabase, m_model, observer);
    m_journal.rewrite(m_model, m_conflicts);
    report.unsaved = m_model.countUnsaved().total();
    Q_EMIT saved(report);
    return report;
}

bool Document::keepUnsavedChanges()
{
    return m_isGivenUp || m_journal.flush();
}

void Document::giveUpUnsavedChanges()
{
    m_journal.drop();
    m_isGivenUp = true;
    m_unlessEnded.start();
}

LeftChanges Document::restore(const LeftChanges &left)
{
    LeftChanges refused;
    edit({QStringLiteral("bringing back of the changes of an earlier run")},
         [&](Edit &edit) { refused = varnow::restore(left, edit.model()); });
    m_conflicts.lines.insert(m_conflicts.lines.end(), refused.lines.begin(), refused.lines.end());
    m_conflicts.fields.insert(m_conflicts.fields.end(), refused.fields.begin(), refused.fields.end());
    m_leftDrafts.insert(m_leftDrafts.end(), left.drafts.begin(), left.drafts.end());
    m_journal.rewrite(m_model, m_conflicts);
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
    m_journal.rewrite(m_model, m_conflicts);
}

} // namespace varnow
