#pragma once

#include "editor/editor.h"

namespace brindle {

/// The hourglass pointer for as long as something takes.
class Hourglass {
  public:
    explicit Hourglass(const EditorWindow& window) : window_(window) { window_.ShowHourglass(true); }

    ~Hourglass() { window_.ShowHourglass(false); }

    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    Hourglass(Hourglass&&) = delete;
    Hourglass& operator=(Hourglass&&) = delete;

  private:
    const EditorWindow& window_;
};

} // namespace brindle
