#pragma once

#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <unistd.h>
#include <utility>

namespace oakfen {

/// File systems mounted for one test and seen by this process alone, so that they go with it
/// whatever happens. Only the superuser may; the test skips where `isPossible` says no.
class Mount {
public:
    [[nodiscard]] static bool isPossible() {
        static const bool possible =
            ::geteuid() == 0 && ::unshare(CLONE_NEWNS) == 0 &&
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        return possible;
    }

    /// A disk of that many bytes.
    static Mount ofSize(const std::string& folder, std::size_t size) {
        const std::string options = "size=" + std::to_string(size);
        return Mount(folder, ::mount("none", folder.c_str(), "tmpfs", 0, options.c_str()) == 0);
    }

    /// The folder as it is, but read-only.
    static Mount readOnly(const std::string& folder) {
        const bool bound = ::mount(folder.c_str(), folder.c_str(), nullptr, MS_BIND, nullptr) == 0;
        return Mount(folder, bound && ::mount("none", folder.c_str(), nullptr,
                                              MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0);
    }

    ~Mount() { (void)::umount2(folder_.c_str(), MNT_DETACH); }
    Mount(const Mount&) = delete;
    Mount& operator=(const Mount&) = delete;

    [[nodiscard]] bool isMounted() const { return isMounted_; }

private:
    Mount(std::string folder, bool isMounted) : folder_(std::move(folder)), isMounted_(isMounted) {}

    std::string folder_;
    bool isMounted_;
};

/// While it lasts, a superuser is an ordinary user, for whom permissions hold.
class OrdinaryUser {
public:
    OrdinaryUser() : formerUser_(::geteuid()) {
        constexpr uid_t nobody = 65534;
        isOrdinary_ = formerUser_ != 0 || ::seteuid(nobody) == 0;
    }
    ~OrdinaryUser() { (void)!::seteuid(formerUser_); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    [[nodiscard]] bool isOrdinary() const { return isOrdinary_; }

private:
    uid_t formerUser_;
    bool isOrdinary_ = false;
};

} // namespace oakfen
