#pragma once

#include "db/ConnectionSettings.h"
#include "model/Model.h"

#include <QString>
#include <QTemporaryDir>

namespace varnow::bench {

/// How much a database holds.
struct Size
{
    int configurations;
    int linesEach;
    int fieldsPerLine;

    int fields() const { return configurations * linesEach * fieldsPerLine; }
};

/// A database file of that size, gone with this object. Configurations are named "Configuration 1" and so
/// on; line n is "Segment n" with name index 0 and message index n.
class BenchDatabase
{
public:
    explicit BenchDatabase(Size size);

    QString file() const { return m_folder.filePath(QStringLiteral("tables.db")); }
    /// What leads the program to it.
    db::ConnectionSettings settings() const { return {QStringLiteral("(sqlite)"), file(), "admin", {}}; }

private:
    QTemporaryDir m_folder;
};

/// Loads all records as the editor does. Ends the program on an error.
void load(const db::ConnectionSettings &settings, Model &model);

/// Heap in use, in bytes.
double heapInUse();

} // namespace varnow::bench
