#ifndef NEXO_TOOLS_PROGRESS_H
#define NEXO_TOOLS_PROGRESS_H

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace nexo::tool {

/// A bar on stderr for work that takes long; it appears after half a second, where a terminal shows it, and
/// is gone when the object is.
class Progress {
public:
    /// `total` in any unit; below 1 nothing is shown.
    Progress(std::string_view label, std::int64_t total);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    void Add(std::int64_t done);

private:
    using Clock = std::chrono::steady_clock;
    void Draw(int percent);

    const std::string m_label;
    const std::int64_t m_total;
    const bool m_seen;  // by somebody
    std::int64_t m_done = 0;
    int m_drawn = -1;
    Clock::time_point m_next;
};

}  // namespace nexo::tool

#endif
