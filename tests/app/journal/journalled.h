// Sessions with a journal, in a state folder of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "app/journal/journal.h"
#include "app/journal/recovery.h"
#include "app/script_fixture.h"

namespace tq::test {

struct Journalled : testing::Test {
    Journalled() { ::setenv("XDG_STATE_HOME", folder.path.c_str(), 1); }
    static std::unique_ptr<Journal> begin(Session& session) {
        std::string fault;
        std::optional<SessionFolder> made = SessionFolder::make(fault);
        EXPECT_TRUE(made) << fault;
        return std::make_unique<Journal>(session, std::move(*made), true);
    }
    /// What comes back of a dead session; a fault that says this is expected.
    static Recovery recovered(const std::filesystem::path& session, const std::string& fault = "") {
        std::optional<Recovery> recovery = recover(session);
        if (!recovery) throw std::runtime_error("nothing comes back of " + session.string());
        const std::string& found = recovery->replay.fault;
        EXPECT_TRUE(fault.empty() ? found.empty() : found.find(fault) != found.npos) << found;
        return std::move(*recovery);
    }
    static std::string text_of(Journal& journal) {
        EXPECT_TRUE(journal.drain());
        return text_of_file(journal.folder().journal_path());
    }
    TemporaryFolder folder;
};

}  // namespace tq::test
