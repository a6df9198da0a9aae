#ifndef NEXO_PLATFORM_LINUX_NEWFILE_H
#define NEXO_PLATFORM_LINUX_NEWFILE_H

#include <sys/types.h>

#include <string>

#include "nexo/platform/linux/Descriptor.h"

namespace nexo::platform {

/// A file that nobody sees before it is complete. It has no name where the file system can do that, else a
/// temporary one; it is discarded unless it is published. All failures leave errno.
class NewFile {
public:
    NewFile() = default;
    ~NewFile() { Discard(); }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Creates it in the open directory `folder`, which must stay open; readable and writable.
    bool Create(int folder, mode_t mode);
    [[nodiscard]] int Get() const { return file_.Get(); }

    /// Gives it its name. PublishNew fails with EEXIST when the name is taken, PublishOver replaces what has
    /// it.
    bool PublishNew(const char* name);
    bool PublishOver(const char* name);

    /// Gives it a temporary name, so that it outlives the process; the name.
    bool Keep(std::string& name);
    void Discard();

    /// Gives up the ownership of a file that has its temporary name.
    void Leave() { temporary_.clear(); }

private:
    bool Link(const char* name);
    bool LinkTemporary();

    int folder_ = -1;
    std::string temporary_;
    Descriptor file_;
};

}  // namespace nexo::platform

#endif
