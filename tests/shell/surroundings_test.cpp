// What a box finds around it: its resources, the transport that it follows.
#include <gtest/gtest.h>

#include "app/script_fixture.h"
#include "host/host.h"
#include "instance/utilities.h"

namespace tq::test {
namespace {

TEST(Resources, areFoundInTheirFolderOrThereIsNone) {
    TemporaryFolder folder;
    ::setenv("SORVO_RESOURCES", folder.path.c_str(), 1);
    EXPECT_TRUE(
        TQ_Prseq_Utilities_GetBundledResourcesPathFromFilename(gensym("x.png")).text().ends_with("/x.png"));
    ::setenv("SORVO_RESOURCES", folder.file("none").c_str(), 1);
    EXPECT_TRUE(TQ_Prseq_Utilities_GetBundledResourcesPathFromFilename(gensym("x.png")).empty());
    ::unsetenv("SORVO_RESOURCES");
}

struct NamedTransport : TimedScriptTest {};

TEST_F(NamedTransport, isFollowedInsteadOfTheDefaultOne) {
    say("event start 100 duration 1 <note> 60 1 </note>\ntransport other");
    Itm& other = itm_getnamed(script.session().host(), gensym("other"));
    itm_settempo(other, 60);
    EXPECT_TRUE(says("gettransport", "dump", "137.500 dump transport other"));
    EXPECT_TRUE(
        says("1\n.wait 200", "out0",
             "237.500 out0 0 event duration 1 <note> 60. 1. </note> <bpf> Pitch 60. 0. 60. 1. </bpf>"));
    EXPECT_EQ(itm_getticks(other), 96) << "a tick is as long as the named transport's tempo says";
    EXPECT_EQ(itm_getticks(itm_getnamed(script.session().host(), {})), 0);
}

}  // namespace
}  // namespace tq::test
