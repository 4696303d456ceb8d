#include "storage/RecoveryJournal.h"

#include "storage/JournalFile.h"

#include <QSet>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <new>
#include <system_error>
#include <utility>

namespace varnow {

/// What is handed to the thread at once.
struct JournalBatch
{
    bool isAll = false; ///< what was noted before no longer counts
    std::vector<JournalEntry> entries;
};

/// What both threads know. The thread keeps it alive, should it have to be left behind.
struct RecoveryJournal::Shared
{
    explicit Shared(const db::ConnectionSettings &database) : file(database) {}

    std::mutex mutex; // for all but the file
    std::condition_variable toDo;
    std::condition_variable done;
    std::vector<JournalBatch> batches;
    quint64 handed = 0; // number of the last batch handed over, or wait for one
    quint64 stored = 0; // number of the last one that storing was tried for
    bool isUrgent = false;
    bool isEnding = false;
    bool hasEnded = false;
    QString problem;
    std::function<void(const QString &)> onProblem;

    JournalFile file; // the thread's own
};

namespace {

using namespace std::chrono_literals;

constexpr auto longestGathering = 250ms; // spares the disk while one change follows the other
constexpr auto longestEnding = 10s;

/// The records that a step changed, as they are now.
template <class Record>
void addTouched(JournalKind kind, const Changes<Record> &changes, const UnsavedChanges<Record> &unsaved,
                std::vector<JournalEntry> &entries)
{
    QSet<RecordKey> seen;
    for (const Change<Record> &change : changes) {
        const RecordKey key = keyOf(change.was ? *change.was : *change.is);
        const qsizetype seenBefore = seen.size();
        seen.insert(key);
        if (seen.size() == seenBefore)
            continue;
        const auto state = unsaved.entries().constFind(key);
        entries.push_back({{kind, key}});
        if (state != unsaved.entries().constEnd())
            entries.back().state = *state;
    }
}

template <class Record>
void addAll(JournalKind kind, const UnsavedChanges<Record> &unsaved, std::vector<JournalEntry> &entries)
{
    const auto &all = unsaved.entries();
    for (auto entry = all.cbegin(); entry != all.cend(); ++entry)
        entries.push_back({{kind, entry.key()}, *entry});
}

/// Conflicts of several runs may be about one record: they are numbered.
template <class Record>
void addConflicts(JournalKind kind, const std::vector<UnsavedChange<Record>> &conflicts,
                  std::vector<JournalEntry> &entries)
{
    for (UnsavedChange<Record> conflict : conflicts) {
        conflict.sequence = static_cast<int>(entries.size());
        entries.push_back({{kind, {{}, {}, conflict.sequence}}, std::move(conflict)});
    }
}

JournalKey keyOf(const PageDraft &draft)
{
    return {JournalKind::Draft, {{}, draft.page, 0}};
}

void addDrafts(const std::vector<PageDraft> &drafts, std::vector<JournalEntry> &entries)
{
    for (const PageDraft &draft : drafts)
        entries.push_back({keyOf(draft), draft});
}

QString store(const std::vector<JournalBatch> &batches, JournalFile &file)
{
    for (const JournalBatch &batch : batches) {
        if (batch.isAll)
            file.reset();
        for (const JournalEntry &entry : batch.entries)
            file.take(entry);
    }
    return file.store();
}

} // namespace

RecoveryJournal::RecoveryJournal(const db::ConnectionSettings &database,
                                 std::function<void(const QString &)> onProblem)
    : m_shared(std::make_shared<Shared>(database))
{
    m_shared->onProblem = std::move(onProblem);
}

RecoveryJournal::~RecoveryJournal()
{
    if (!m_thread.joinable())
        return;
    std::unique_lock lock(m_shared->mutex);
    m_shared->isEnding = true;
    ++m_shared->handed; // one more try
    m_shared->toDo.notify_one();
    const bool hasEnded = m_shared->done.wait_for(lock, longestEnding, [this] { return m_shared->hasEnded; });
    m_shared->onProblem = {};
    lock.unlock();
    if (hasEnded)
        m_thread.join();
    else
        m_thread.detach(); // the disk does not answer
}

void RecoveryJournal::note(const Model &model, const EditStep &step)
{
    if (m_isDropped) {
        rewrite(model, m_conflicts);
        return;
    }
    JournalBatch batch;
    addTouched(JournalKind::Line, step.lines, model.lines.unsaved(), batch.entries);
    addTouched(JournalKind::Field, step.fields, model.fields.unsaved(), batch.entries);
    hand(std::move(batch));
}

void RecoveryJournal::noteDrafts(const std::vector<PageDraft> &drafts)
{
    if (drafts == m_drafts)
        return;
    JournalBatch batch;
    for (const PageDraft &draft : m_drafts)
        batch.entries.push_back({keyOf(draft)});
    m_drafts = drafts;
    addDrafts(m_drafts, batch.entries);
    if (!m_isDropped)
        hand(std::move(batch));
}

void RecoveryJournal::rewrite(const Model &model, const LeftChanges &conflicts)
{
    m_isDropped = false;
    m_conflicts = conflicts;
    JournalBatch batch{true, {}};
    addAll(JournalKind::Line, model.lines.unsaved(), batch.entries);
    addAll(JournalKind::Field, model.fields.unsaved(), batch.entries);
    addConflicts(JournalKind::LineConflict, conflicts.lines, batch.entries);
    addConflicts(JournalKind::FieldConflict, conflicts.fields, batch.entries);
    addDrafts(m_drafts, batch.entries);
    hand(std::move(batch));
}

void RecoveryJournal::drop()
{
    m_isDropped = true;
    hand({true, {}});
}

/// Hands a batch to the thread.
void RecoveryJournal::hand(JournalBatch batch)
{
    if (batch.entries.empty() && !m_thread.joinable())
        return;
    {
        const std::lock_guard lock(m_shared->mutex);
        if (batch.isAll)
            m_shared->batches.clear();
        m_shared->batches.push_back(std::move(batch));
        ++m_shared->handed;
    }
    m_shared->toDo.notify_one();
    if (m_thread.joinable())
        return;
    try {
        m_thread = std::thread(run, m_shared);
    } catch (const std::system_error &) { // the next batch tries again
        const std::lock_guard lock(m_shared->mutex);
        m_shared->problem = QStringLiteral("The system has no room for a further thread.");
    }
}

bool RecoveryJournal::flush(std::chrono::milliseconds longest)
{
    std::unique_lock lock(m_shared->mutex);
    if (!m_thread.joinable())
        return m_shared->batches.empty();
    const quint64 number = ++m_shared->handed;
    m_shared->isUrgent = true;
    m_shared->toDo.notify_one();
    const auto isStored = [&] { return m_shared->stored >= number; };
    return m_shared->done.wait_for(lock, longest, isStored) && m_shared->problem.isEmpty();
}

QString RecoveryJournal::problem() const
{
    const std::lock_guard lock(m_shared->mutex);
    return m_shared->problem;
}

/// The thread's work.
void RecoveryJournal::run(const std::shared_ptr<Shared> &shared)
{
    std::unique_lock lock(shared->mutex);
    const auto hasWork = [&] { return shared->stored != shared->handed; };
    for (;;) {
        shared->toDo.wait(lock, [&] { return hasWork() || shared->isEnding; });
        if (!hasWork())
            break;
        shared->toDo.wait_for(lock, longestGathering, [&] { return shared->isUrgent || shared->isEnding; });
        shared->isUrgent = false;
        const quint64 number = shared->handed;
        std::vector<JournalBatch> batches = std::exchange(shared->batches, {});
        lock.unlock();
        QString problem;
        try {
            problem = store(batches, shared->file);
            batches.clear();
        } catch (const std::bad_alloc &) {
            problem = QStringLiteral("Out of memory");
        }
        lock.lock();
        // Those that were not taken go first, unless all was handed over since.
        auto &waiting = shared->batches;
        if (waiting.empty() || !waiting.front().isAll)
            waiting.insert(waiting.begin(), batches.begin(), batches.end());
        const bool isNews = std::exchange(shared->problem, problem) != problem;
        if (const auto tell = shared->onProblem; isNews && tell) {
            lock.unlock();
            tell(problem);
            lock.lock();
        }
        shared->stored = number;
        shared->done.notify_all();
    }
    shared->hasEnded = true;
    shared->done.notify_all();
}

} // namespace varnow
