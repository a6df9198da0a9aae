#include "nexo/env/FileIteration.h"

#include <array>
#include <utility>

#include "nexo/env/PathAlgebra.h"
#include "nexo/platform/FileSearch.h"

using nexo::platform::FileSearch;

namespace {

enum class Kind { kFile, kDirectory };

/// The open iterations of the process.
struct IterationStack {
    std::array<FileSearch, 64> open;
    std::size_t count = 0;

    void Pop() {
        if (count > 0) open[--count].Close();
    }
};

IterationStack& TheStack() {
    static auto& stack = *new IterationStack;  // still there for code that runs while the process ends
    return stack;
}

// Goes on, while `more` holds, to an entry of the kind.
bool Seek(FileSearch& search, bool more, Kind kind) {
    while (more && search.IsDirectory() != (kind == Kind::kDirectory)) more = search.Next();
    return more;
}

int GetFirst(const CString& dir, const CString& pattern, Kind kind, CString& name) {
    IterationStack& stack = TheStack();
    if (stack.count == stack.open.size() || !nexo::platform::DirectoryExists(dir)) return 0;
    FileSearch search;
    if (!Seek(search, search.Open(dir ^ pattern), kind)) return 0;
    name.SetUnits(search.Name());
    stack.open[stack.count++] = std::move(search);
    return 1;
}

int GetNext(Kind kind, CString& name) {
    IterationStack& stack = TheStack();
    if (stack.count == 0) return 0;
    FileSearch& search = stack.open[stack.count - 1];
    if (!Seek(search, search.Next(), kind)) {
        stack.Pop();
        return 0;
    }
    name.SetUnits(search.Name());
    return 1;
}

}  // namespace

int GetFirstFileName(const CString& dir, const CString& pattern, CString& name) {
    return GetFirst(dir, pattern, Kind::kFile, name);
}

int GetFirstDirName(const CString& dir, const CString& pattern, CString& name) {
    return GetFirst(dir, pattern, Kind::kDirectory, name);
}

int GetNextFileName(CString& name) {
    return GetNext(Kind::kFile, name);
}

int GetNextDirName(CString& name) {
    return GetNext(Kind::kDirectory, name);
}

void StopFileIteration() {
    TheStack().Pop();
}

void StopDirIteration() {
    TheStack().Pop();
}
