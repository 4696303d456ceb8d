#pragma once

#include "sideBySide.h"

#include <QCoreApplication>

namespace varnow::bench {

/// Processor seconds until what `work` changed is painted.
template <class Work> double secondsUntilShown(Work work)
{
    return seconds([&] {
        work();
        QCoreApplication::processEvents();
    });
}

} // namespace varnow::bench
