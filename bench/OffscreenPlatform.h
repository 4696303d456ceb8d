#pragma once

#include <QTemporaryDir>

#include <cstdio>

namespace varnow::bench {

/// Makes this process and those that it starts run off-screen, without the warnings that Qt gives there at
/// every start and for every window, which would bury the table. What else they write to stderr is passed on.
class OffscreenPlatform
{
public:
    OffscreenPlatform();
    ~OffscreenPlatform();
    OffscreenPlatform(const OffscreenPlatform &) = delete;
    OffscreenPlatform &operator=(const OffscreenPlatform &) = delete;

private:
    QTemporaryDir m_runtimeFolder;
    FILE *m_filter;
    int m_unfiltered;
};

} // namespace varnow::bench
