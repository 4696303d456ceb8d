#pragma once

#include "model/History.h"
#include "storage/RecoveryJournal.h"
#include "storage/Session.h"
#include "storage/recovery.h"
#include "storage/save.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace varnow {

class Run;

/// How a save of the document ended.
struct SaveReport
{
    ChangeCounts before; ///< what was unsaved before
    SaveResult result;
    int unsaved = 0; ///< records that still differ from their rows
};

/// What the editor edits: the lines and fields of all configurations, the configuration that is shown, what
/// was done, and what is unsaved. Records change only through it, and it tells everybody who shows them.
class Document : public QObject
{
    Q_OBJECT

public:
    /// `session` leads to the database and must outlive the document.
    explicit Document(const Session &session);
    ~Document() override;

    const Model &model() const { return m_model; }
    const Session &session() const { return m_session; }

    /// Name of the configuration that is shown, trimmed; empty without one.
    const QString &configuration() const { return m_configuration; }
    /// Shows a configuration, also one that is shown already. Blanks around its name are dropped.
    void showConfiguration(const QString &name);

    /// Lets `change` change the records, as one step. One within another edit is a part of that one, and one
    /// that changes nothing leaves no trace. Returns whether something was changed.
    bool edit(const EditLabel &label, const std::function<void(Edit &)> &change);

    /// The step that undo() takes back, or redo() makes again; null without one.
    const EditStep *undoable() const { return m_history.undoable(); }
    const EditStep *redoable() const { return m_history.redoable(); }

    /// Without a step nothing happens.
    void undo();
    void redo();

    /// Reads the records from the database; loadAll() tells how, and the result. `load` is the last part of a
    /// run. Nothing of what was done before can be undone.
    int load(Run &run);
    int reload(RunObserver &observer);

    /// Writes the records to the database; saveAll() tells how.
    SaveReport save(RunObserver &observer);

    /// Whether a save has something to write or to delete.
    bool hasUnsavedChanges() const { return m_model.hasUnsavedChanges() || m_model.hasRowsToDelete(); }

    /// Waits until what is unsaved is in the recovery file. Returns whether that went well.
    bool keepUnsavedChanges();
    /// Whether the recovery file can not be written at present.
    bool isKeepingFailing() const { return !m_journal.problem().isEmpty(); }
    /// What is unsaved is not to be kept, until something is changed.
    void giveUpUnsavedChanges();
    bool hasGivenUp() const { return m_isGivenUp; }

    /// Brings the changes that an earlier run has left into memory, as a step. What has changed in the
    /// database since stays as it is there; these changes are returned and are conflicts() from now on.
    LeftChanges restore(const LeftChanges &left);
    /// Changes of an earlier run that were not brought back.
    const LeftChanges &conflicts() const { return m_conflicts; }
    /// What is typed on the pages and not stored; it is kept in the recovery file, too.
    void keepDrafts(const std::vector<PageDraft> &drafts) { m_journal.noteDrafts(drafts); }
    /// What an earlier run has left of that.
    const std::vector<PageDraft> &leftDrafts() const { return m_leftDrafts; }
    /// Makes these changes, whatever the records are now. They are no conflicts any more.
    void reapply(const LeftChanges &conflicts);

Q_SIGNALS:
    /// Records have changed by a step, which was done, undone or made again.
    void changed(const EditStep &step);
    /// showConfiguration() was called.
    void configurationChanged();
    /// The records were read anew, with this result of loadAll().
    void loaded(int code);
    void saved(const SaveReport &report);
    /// What is unsaved cannot be written into the recovery file.
    void keepingFailed();

private:
    void take(EditStep step);
    void tellChanged(const EditStep &step);

    const Session &m_session;
    Model m_model;
    History m_history;
    QString m_configuration;
    Edit *m_edit = nullptr; // the one that runs
    RecoveryJournal m_journal;
    std::vector<PageDraft> m_leftDrafts;
    QTimer m_unlessEnded; // runs from the user's No to saving, behind which the program should end
    LeftChanges m_conflicts;
    bool m_isGivenUp = false; // the user said No to saving, and has changed nothing since
};

} // namespace varnow
