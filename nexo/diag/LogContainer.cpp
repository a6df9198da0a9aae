#include "nexo/diag/LogContainer.h"

#include <memory>
#include <string_view>

#include "nexo/platform/CodePage.h"

namespace {

using nexo::platform::File;

bool IsAllowedInPaths(wchar_t character, int position) {
    if (character == L':') return position == 1;  // behind a drive
    return character >= 0x20 && std::wstring_view(L"\"*<>?|").find(character) == std::wstring_view::npos;
}

/// Replaces what no file name may hold.
CString CleanedPath(const wchar_t* path) {
    CString text(path);
    for (int i = 0; i < text.GetLength(); ++i)
        if (!IsAllowedInPaths(text[i], i)) text.SetAt(i, L'_');
    return text;
}

}  // namespace

void CLog::startLog(const wchar_t* name, const wchar_t* path) {
    if (isOpen()) return;
    name_ = name;
    const CString cleaned = CleanedPath(path);
    // Appending keeps the texts of several processes apart that log to the same file.
    if (file_.Open(cleaned, File::Mode::kCreateAlways)) file_.Open(cleaned, File::Mode::kAppend);
}

void CLog::write(const wchar_t* format, std::span<const nexo::FormatArg> args) {
    if (!isOpen()) return;
    CString text;
    nexo::FormatInto(text, format, args);
    nexo::platform::ByteBuffer bytes;
    nexo::platform::FromWide(nexo::platform::kCodePageWindows1252, text.View(), bytes);
    file_.Append(bytes.View());
}

CLogContainer& CLogContainer::GetInstance() {
    static auto& container =
        *new CLogContainer;  // writable until the process ends, whatever is destroyed before
    return container;
}

int CLogContainer::find(const wchar_t* name) const {
    for (int i = 0; i < static_cast<int>(logs_.GetCount()); ++i)
        if (logs_[i]->getName() == name) return i;
    return -1;
}

void CLogContainer::startLog(const wchar_t* name, const wchar_t* path) {
    const std::lock_guard guard(lock_);
    if (!enabled_) return;
    if (const int index = find(name); index >= 0) return logs_[index]->startLog(name, path);

    auto log = std::make_unique<CLog>();
    log->startLog(name, path);
    if (!log->isOpen()) return;
    logs_.Add(log.get());
    log.release();
}

void CLogContainer::write(const wchar_t* name, const wchar_t* format, std::span<const nexo::FormatArg> args) {
    const std::lock_guard guard(lock_);
    if (!enabled_) return;
    if (const int index = find(name); index >= 0) logs_[index]->write(format, args);
}

void CLogContainer::endLog(const wchar_t* name) {
    const std::lock_guard guard(lock_);
    const int index = find(name);
    if (index < 0) return;
    delete logs_[index];
    logs_.RemoveAt(index);
}

int CLogContainer::hasLogNameUsed(const wchar_t* name) {
    const std::lock_guard guard(lock_);
    return enabled_ && find(name) >= 0 ? 1 : 0;
}

void CLogContainer::enableLogging(bool enable) {
    const std::lock_guard guard(lock_);
    enabled_ = enable;
}

bool CLogContainer::isEnabled() {
    const std::lock_guard guard(lock_);
    return enabled_;
}
