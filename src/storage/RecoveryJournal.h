#pragma once

#include "db/ConnectionSettings.h"
#include "model/Edit.h"
#include "storage/LeftChanges.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace varnow {

struct JournalBatch;

/// Keeps what is unsaved in a file, so that neither a crash nor a power cut loses it. Each step of the user
/// costs what it changed, not what is unsaved: the changed records are copied here, and a thread of its own
/// writes them, at most a quarter of a second later. While the disk refuses them, what was written stays, and
/// each further change tries again.
///
/// To be used by one thread. The file stays when the journal goes; drop() removes it.
class RecoveryJournal
{
public:
    /// `onProblem` is called in the journal's thread when the disk begins to refuse the changes, with the
    /// reason as a sentence, and with an empty text when they are safe again, before flush() returns. It must
    /// not wait.
    explicit RecoveryJournal(const db::ConnectionSettings &database,
                             std::function<void(const QString &problem)> onProblem = {});
    /// Waits until all is written, but not for ever.
    ~RecoveryJournal();
    RecoveryJournal(const RecoveryJournal &) = delete;
    RecoveryJournal &operator=(const RecoveryJournal &) = delete;

    /// A step was made, undone or made again: its records are noted as they are now.
    void note(const Model &model, const EditStep &step);
    /// What is typed and not stored, of all pages.
    void noteDrafts(const std::vector<PageDraft> &drafts);
    /// Notes all that is unsaved, and what an earlier run left and is not decided yet: after a load, a save,
    /// and when a drop() was called off.
    void rewrite(const Model &model, const LeftChanges &conflicts = {});
    /// The user gives up what is unsaved: the file goes. The next note() writes everything again.
    void drop();

    /// Waits until all that was noted is on the disk and was read back. Returns whether that went well in
    /// time.
    bool flush(std::chrono::milliseconds longest = std::chrono::seconds(30));
    /// Why the disk refused the latest changes, as a sentence; empty when it did not.
    QString problem() const;

private:
    struct Shared;

    void hand(JournalBatch batch);
    static void run(const std::shared_ptr<Shared> &shared);

    std::shared_ptr<Shared> m_shared; // with the thread
    std::thread m_thread;             // runs from the first change on
    std::vector<PageDraft> m_drafts;
    LeftChanges m_conflicts; // as last noted
    bool m_isDropped = false;
};

} // namespace varnow
