#pragma once

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
    ~BenchDatabase();

    QString file() const { return m_folder.filePath(QStringLiteral("tables.db")); }
    /// Lets the program's global state lead to this database, and empties the stores.
    void use() const;

private:
    QTemporaryDir m_folder;
};

/// Forgets every record in memory.
void emptyStores();

/// Heap in use, in bytes.
double heapInUse();

} // namespace varnow::bench
