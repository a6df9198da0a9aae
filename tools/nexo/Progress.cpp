#include "Progress.h"

#include <algorithm>
#include <cstdio>

#include "Output.h"
#include "nexo/base/CString.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Console.h"

namespace nexo::tool {
namespace {

constexpr int kWidth = 30;
constexpr auto kPatience = std::chrono::milliseconds(500);
constexpr auto kPause = std::chrono::milliseconds(100);

}  // namespace

Progress::Progress(std::string_view label, std::int64_t total)
    : m_label(Visible(platform::WideFromUtf8(label).View())),
      m_total(total),
      m_seen(total > 0 && platform::IsErrorTerminal()),
      m_next(Clock::now() + kPatience) {}

Progress::~Progress() {
    if (m_drawn >= 0) std::fputs("\r\x1B[K", stderr);
}

void Progress::Add(std::int64_t done) {
    m_done += done;
    if (!m_seen) return;
    const auto now = Clock::now();
    if (now < m_next) return;
    m_next = now + kPause;
    // A file may grow while it is read.
    const double part = std::min(1.0, static_cast<double>(m_done) / static_cast<double>(m_total));
    if (const int percent = static_cast<int>(100 * part); percent != m_drawn) Draw(percent);
}

void Progress::Draw(int percent) {
    const auto filled = static_cast<std::size_t>(kWidth * percent / 100);
    std::fprintf(stderr, "\r[%s%s] %3d %% %s\x1B[K", std::string(filled, '#').c_str(),
                 std::string(kWidth - filled, '.').c_str(), percent, m_label.c_str());
    m_drawn = percent;
}

}  // namespace nexo::tool
