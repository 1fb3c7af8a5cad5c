#pragma once

#include <QApplication>

namespace brindle {

/// The normal pointer for as long as a box waits, also over a busy window.
class NormalPointer {
  public:
    NormalPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }

    ~NormalPointer() { QApplication::restoreOverrideCursor(); }

    NormalPointer(const NormalPointer&) = delete;
    NormalPointer& operator=(const NormalPointer&) = delete;
    NormalPointer(NormalPointer&&) = delete;
    NormalPointer& operator=(NormalPointer&&) = delete;
};

} // namespace brindle
