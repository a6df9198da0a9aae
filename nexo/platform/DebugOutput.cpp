#include "nexo/platform/DebugOutput.h"

#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "nexo/platform/CodePage.h"
#include "nexo/platform/Console.h"

namespace nexo::platform {
namespace {

struct Receiver {
    std::mutex lock;
    std::shared_ptr<const DebugSink> sink;
};

Receiver& Current() {
    static Receiver receiver;
    return receiver;
}

std::shared_ptr<const DebugSink> Exchange(std::shared_ptr<const DebugSink> sink) {
    Receiver& receiver = Current();
    const std::lock_guard guard(receiver.lock);
    return std::exchange(receiver.sink, std::move(sink));
}

std::shared_ptr<const DebugSink> Sink() {
    Receiver& receiver = Current();
    const std::lock_guard guard(receiver.lock);
    return receiver.sink;
}

}  // namespace

void WriteDebug(std::wstring_view text) {
    if (const auto sink = Sink()) return (*sink)(text);
    if (IsErrorTerminal() || IsDebuggerPresent()) WriteToError(Utf8FromWide(text));
}

DebugSink SetDebugSink(DebugSink sink) {
    const auto former = Exchange(sink ? std::make_shared<const DebugSink>(std::move(sink)) : nullptr);
    return former ? *former : DebugSink();
}

}  // namespace nexo::platform
