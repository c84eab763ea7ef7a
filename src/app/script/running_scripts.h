// Scripts that run each other.
#pragma once

#include <filesystem>
#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "app/script/quiet.h"

namespace tq {

/// The lines of a script that another one runs come before what is left of that one.
class RunningScripts {
 public:
    bool any() const { return !scripts_.empty(); }
    /// Begins a script of lines that outlive it, under the name of their file.
    void begin(std::istream& lines, const std::string& name);
    /// Begins a file. Throws a ScriptFault without place when it cannot be read or is being run.
    void begin(const std::string& file);
    /// Takes the next line; false when all scripts are at their end, and none is left then. Throws a
    /// ScriptFault when the line is none.
    bool take(std::string& line);
    /// Where the line that was taken last stands.
    const ScriptPlace& place() const { return place_; }
    /// A file that a script names: beside the script that is running, or else as it is.
    std::string beside(const std::string& file) const;
    /// All that are running end here.
    void stop() { scripts_.clear(); }

 private:
    struct Script {
        std::string name;
        std::filesystem::path path;  ///< the same for all names of the file
        std::unique_ptr<std::istream> own;
        std::istream* lines;
        long number;  ///< of the line that was taken last
    };
    std::vector<Script> scripts_;  ///< each is run by the one before it
    ScriptPlace place_;
};

}  // namespace tq
