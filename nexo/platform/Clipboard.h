#ifndef NEXO_PLATFORM_CLIPBOARD_H
#define NEXO_PLATFORM_CLIPBOARD_H

#include <memory>
#include <string>
#include <string_view>

#include "nexo/base/Export.h"
#include "nexo/base/Fwd.h"

namespace nexo::platform {

/// Plain text, the one format that needs no registration; UTF-16, zero-terminated.
inline constexpr unsigned int kClipboardUnicodeText = 13;

/// A clipboard with formats registered by name. Data are bytes; text travels as UTF-16 in little-endian
/// order, zero-terminated, so that a desktop implementation can hand it to foreign programs.
///
/// The default is local to the process. A desktop program sets its own with SetClipboard.
class NEXO_API Clipboard {
public:
    virtual ~Clipboard();

    /// Number of the named format, the same for every spelling of the name; 0 for an empty name.
    virtual unsigned int RegisterFormat(std::wstring_view name) = 0;

    /// Opens the clipboard for the calling thread; false while another one has it open.
    virtual bool Open() = 0;
    virtual void Close() = 0;

    /// These three need the clipboard open and answer false otherwise. Data of an unchanged clipboard stay
    /// readable any number of times.
    virtual bool Empty() = 0;
    virtual bool SetData(unsigned int format, std::string_view bytes) = 0;
    virtual bool GetData(unsigned int format, std::string& bytes) = 0;

    /// Whether GetData would find the format; need not be open.
    [[nodiscard]] virtual bool IsAvailable(unsigned int format) = 0;
};

[[nodiscard]] NEXO_API std::shared_ptr<Clipboard> GetClipboard();

/// Replaces the clipboard of the process; null restores the process-local one.
NEXO_API void SetClipboard(std::shared_ptr<Clipboard> clipboard);

/// The process's clipboard, opened for the life of this object; false in a condition when it could not be
/// opened.
class NEXO_API ClipboardSession {
public:
    ClipboardSession();
    ~ClipboardSession();
    ClipboardSession(const ClipboardSession&) = delete;
    ClipboardSession& operator=(const ClipboardSession&) = delete;

    explicit operator bool() const { return open_; }
    Clipboard* operator->() const { return clipboard_.get(); }

    /// Sets text, with its terminator, under a format.
    bool SetText(unsigned int format, std::wstring_view text);

    /// Text under a format up to its terminator; false with `text` unchanged when there is none.
    bool GetText(unsigned int format, CString& text);

private:
    std::shared_ptr<Clipboard> clipboard_;
    bool open_;
};

}  // namespace nexo::platform

#endif
