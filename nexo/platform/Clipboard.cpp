#include "nexo/platform/Clipboard.h"

#include <map>
#include <mutex>
#include <thread>

#include "nexo/base/CString.h"
#include "nexo/base/CharClass.h"
#include "nexo/platform/ByteBuffer.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Replaceable.h"

namespace nexo::platform {
namespace {

constexpr unsigned int kFirstRegistered = 0xC000;

struct OrderNoCase {
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const { return CompareOrdinalNoCase(a, b) < 0; }
};

/// The clipboard of a process without a desktop.
class LocalClipboard final : public Clipboard {
public:
    unsigned int RegisterFormat(std::wstring_view name) override {
        if (name.empty()) return 0;
        const std::lock_guard guard(lock_);
        const auto known = formats_.find(name);
        if (known != formats_.end()) return known->second;
        const auto number = static_cast<unsigned int>(kFirstRegistered + formats_.size());
        formats_.emplace(name, number);
        return number;
    }

    bool Open() override {
        const std::lock_guard guard(lock_);
        if (opener_ != std::thread::id() && !IsMine()) return false;
        opener_ = std::this_thread::get_id();
        return true;
    }

    void Close() override {
        const std::lock_guard guard(lock_);
        if (IsMine()) opener_ = std::thread::id();
    }

    bool Empty() override {
        const std::lock_guard guard(lock_);
        if (!IsMine()) return false;
        data_.clear();
        return true;
    }

    bool SetData(unsigned int format, std::string_view bytes) override {
        const std::lock_guard guard(lock_);
        if (!IsMine() || format == 0) return false;
        data_[format] = bytes;
        return true;
    }

    bool GetData(unsigned int format, std::string& bytes) override {
        const std::lock_guard guard(lock_);
        const auto found = data_.find(format);
        if (!IsMine() || found == data_.end()) return false;
        bytes = found->second;
        return true;
    }

    bool IsAvailable(unsigned int format) override {
        const std::lock_guard guard(lock_);
        return data_.contains(format);
    }

private:
    [[nodiscard]] bool IsMine() const { return opener_ == std::this_thread::get_id(); }

    std::mutex lock_;
    std::thread::id opener_;
    std::map<std::wstring, unsigned int, OrderNoCase> formats_;
    std::map<unsigned int, std::string> data_;
};

Replaceable<Clipboard, LocalClipboard>& Current() {
    static Replaceable<Clipboard, LocalClipboard> clipboard;
    return clipboard;
}

}  // namespace

Clipboard::~Clipboard() = default;

std::shared_ptr<Clipboard> GetClipboard() {
    return Current().Get();
}

void SetClipboard(std::shared_ptr<Clipboard> clipboard) {
    Current().Set(std::move(clipboard));
}

ClipboardSession::ClipboardSession() : clipboard_(GetClipboard()), open_(clipboard_->Open()) {}

ClipboardSession::~ClipboardSession() {
    if (open_) clipboard_->Close();
}

bool ClipboardSession::SetText(unsigned int format, std::wstring_view text) {
    ByteBuffer bytes;
    Utf16FromWide(text, ByteOrder::kLittle, bytes);
    bytes.Append(std::string_view("\0", 2));
    return open_ && clipboard_->SetData(format, bytes.View());
}

bool ClipboardSession::GetText(unsigned int format, CString& text) {
    std::string bytes;
    if (!open_ || !clipboard_->GetData(format, bytes)) return false;
    std::wstring units(bytes.size() / 2, L'\0');
    WideFromUtf16(bytes, ByteOrder::kLittle, units.data());
    text = units.c_str();
    return true;
}

}  // namespace nexo::platform
