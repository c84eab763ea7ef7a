// Writing a file so that the old one or the new one is always whole. Every file that people keep is written
// here.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tq {

/// A file that is written beside its target and gets its name when it is whole; what is not committed leaves
/// nothing behind. Links are followed; mode and owner stay; a file that is read-only is refused. Where no new
/// file can take the old one's place (its folder admits none, or it is mounted by itself), the old one is
/// overwritten, and until that is done a copy of it is among the user's kept copies. Devices and pipes are
/// written into.
class FileWriter {
 public:
    explicit FileWriter(const std::string& path);
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    /// Whether nothing has failed so far.
    explicit operator bool() const { return fault_.empty(); }
    /// Why something has; empty: nothing.
    const std::string& fault() const { return fault_; }

    /// What is written until it is committed: an open file with no name or one of its own, from its
    /// beginning.
    int descriptor() const { return staged_; }
    bool write(std::string_view bytes);
    enum class Sync { Now, Later };
    /// Puts the file into its place; synced before and after, unless somebody does that later.
    bool commit(Sync sync = Sync::Now);

 private:
    void stage_beside();
    void stage_elsewhere();
    int open_named();
    void drop_name();
    bool looks_as_before(int file) const;
    bool take_place();
    bool has_name();
    bool overwrite();
    bool copy_into(int target);
    bool fail(const std::string& reason);
    bool fail();  ///< for the reason that errno tells

    std::filesystem::path target_;
    std::filesystem::path beside_;  ///< the name beside the target; empty: cannot be, or is not wanted
    bool named_ = false;            ///< that name is taken
    bool exists_ = false, special_ = false;
    unsigned mode_ = 0666, owner_ = 0, group_ = 0;
    int staged_ = -1;
    std::string fault_;
};

}  // namespace tq
