#ifndef NEXO_TESTS_SUPPORT_DEBUGTEXT_H
#define NEXO_TESTS_SUPPORT_DEBUGTEXT_H

#include <utility>

#include "nexo/base/CString.h"
#include "nexo/platform/DebugOutput.h"

/// Collects what goes to the debugger output, as long as it lives; for one thread.
class DebugText {
public:
    DebugText() {
        former_ = nexo::platform::SetDebugSink([this](std::wstring_view text) { text_ += text; });
    }
    DebugText(const DebugText&) = delete;
    DebugText& operator=(const DebugText&) = delete;
    ~DebugText() { nexo::platform::SetDebugSink(std::move(former_)); }

    [[nodiscard]] const CString& Text() const { return text_; }

    /// The text so far, which starts anew.
    CString Take() { return std::exchange(text_, CString()); }

private:
    CString text_;
    nexo::platform::DebugSink former_;
};

#endif
