#ifndef NEXO_PLATFORM_REPLACEABLE_H
#define NEXO_PLATFORM_REPLACEABLE_H

// Private to the library.

#include <memory>
#include <mutex>
#include <utility>

namespace nexo::platform {

/// A service of the process that an application may replace at any time; users keep the one they took.
/// `Default` is made on first use, and again whenever nothing is set.
template <class Service, class Default>
class Replaceable {
public:
    std::shared_ptr<Service> Get() {
        const std::lock_guard guard(lock_);
        if (service_ == nullptr) service_ = std::make_shared<Default>();
        return service_;
    }
    void Set(std::shared_ptr<Service> service) {
        const std::lock_guard guard(lock_);
        service_.swap(service);  // the former one is destroyed after the lock is gone
    }

private:
    std::mutex lock_;
    std::shared_ptr<Service> service_;
};

}  // namespace nexo::platform

#endif
