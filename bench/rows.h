#pragma once

// Each adds the rows of one concern to the table.

namespace varnow::bench {

void addStoreRows();
void addEditorRows();
void addDisplayRows();
void addSaveRows();
void addJournalRows();
void addStartRows();

} // namespace varnow::bench
