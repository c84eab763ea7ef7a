// The inspectors by script: what their fields show, what a change does, and what of it stands in the history.
#include "inspectors/inspectors.h"

#include "interaction/hand.h"

namespace tq::test {
namespace {

struct InspectorTest : Hand {
    InspectorTest() { say("track_add Piano\n.wait 100"); }

    /// What is shown behind the name of a field; rows of a table with commas between them.
    std::string field(const std::string& name) {
        std::string text;
        for (const std::string& line : say(".show fields"))
            if (line.starts_with("field " + name + " "))
                text += (text.empty() ? "" : ", ") + line.substr(7 + name.size());
        return text;
    }
    Lines change(const std::string& name, const std::string& what) {
        return say(".field " + name + " " + what);
    }
    const Event& event(size_t index = 0) { return *box().tracks[0]->events.at(index); }
    std::string last() {
        const History& history = box().history;
        return history.cursor < 0 ? "" : history.items[static_cast<size_t>(history.cursor)]->name();
    }
};

struct EventInspector : InspectorTest {
    EventInspector() {
        make_sound();
        add(1000, 2000, 60, "<message> m 9 </message> label lead <buffer> sound </buffer>");
        add(4000, 500, 64);
        click(1500, 60);
        say("event_inspector_open");
    }
    ~EventInspector() override { EXPECT_TRUE(comes_back()); }
};

TEST_F(EventInspector, showsTheEvent) {
    EXPECT_TRUE(same_lines(say(".show fields"), lines_of(R"(field eventEd_selector 0
        field eventEd_ID 1
        field eventEd_label lead
        field eventEd_start 1000.
        field eventEd_duration 2000.
        field eventEd_pitch 60.
        field eventEd_frequency 261.62558
        field eventEd_freq_base 440.
        field eventEd_velocity 90.
        field eventEd_buffer sound
        field eventEd_bufferadapt 0
        field eventEd_bufferstart 0.
        field eventEd_bufferend 4000.
        field eventEd_bpftypes 0
        field eventEd_bpfeditor 0 0. 60.
        field eventEd_bpfeditor 1 2000. 60.
        field eventEd_message m 9)")));
}

TEST_F(EventInspector, changesAreEditsWithinTheirLimits) {
    struct {
        const char *name, *value, *shown, *edit;
    } const rows[] = {
        {"eventEd_label", "bass", "bass", "Change Event Label"},
        {"eventEd_label", "", "\"\"", "Change Event Label"},
        {"eventEd_message", "set 1 two", "set 1 two", "Change Event Message"},
        {"eventEd_message", "<empty>", "\"\"", "Change Event Message"},
        {"eventEd_start", "500", "500.", "Change Event Start"},
        {"eventEd_start", "-5", "0.", "Change Event Start"},
        {"eventEd_duration", "750.5", "750.5", "Change Event Duration"},
        {"eventEd_duration", "0", "1.", "Change Event Duration"},
        {"eventEd_pitch", "200", "131.", "Move Event"},
        {"eventEd_pitch", "-3", "0.", "Move Event"},
        {"eventEd_frequency", "880", "880.", "Move Event"},
        {"eventEd_velocity", "300", "127.", "Change Event Velocity"},
        {"eventEd_bufferstart", "1000", "1000.", "Change Event MSP Buffer Start"},
        {"eventEd_bufferstart", "9000", "4000.", "Change Event MSP Buffer Start"},
        {"eventEd_bufferend", "5000", "4000.", "Change Event MSP Buffer End"},
        {"eventEd_bufferadapt", "1", "1", "Link MSP Buffer/Event Size"},
        {"eventEd_buffer", "none", "\"\"", "Change Event MSP Buffer"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.name) + " " + row.value);
        const std::string before = field(row.name), document = document_of(script.session());
        const size_t items = box().history.items.size();
        change(row.name, std::string("value ") + row.value);
        EXPECT_EQ(field(row.name), row.shown);
        EXPECT_EQ(last(), row.edit);
        EXPECT_EQ(box().history.items.size(), items + 1);
        say("undo");
        EXPECT_EQ(field(row.name), before);
        EXPECT_EQ(document_of(script.session()), document);
        say("redo");
        EXPECT_EQ(field(row.name), row.shown);
    }
    EXPECT_EQ(event().pitch, 81);
}

TEST_F(EventInspector, theSameTextAgainIsNoEdit) {
    const size_t items = box().history.items.size();
    change("eventEd_label", "value lead");
    change("eventEd_message", "value m 9");
    change("eventEd_buffer", "value sound");
    change("eventEd_bufferadapt", "value 0");
    EXPECT_EQ(box().history.items.size(), items);
    EXPECT_EQ(change("eventEd_nothing", "value 1"),
              Lines{"error tq.sorvo: no field \"eventEd_nothing\" is open"});
}

TEST_F(EventInspector, aNumberThatIsDraggedIsOneStep) {
    const size_t items = box().history.items.size();
    change("eventEd_start", "mousedown");
    for (const char* value : {"1100", "1200", "4500"}) {
        change("eventEd_start", std::string("value ") + value);
        EXPECT_EQ(box().history.items.size(), items);
    }
    EXPECT_EQ(events(), "4000+500@64 4500+2000@60*") << "the order is right in the middle of it";
    change("eventEd_start", "mouseup");
    EXPECT_EQ(box().history.items.size(), items + 1);
    say("undo");
    EXPECT_EQ(events(), "1000+2000@60* 4000+500@64");
    // Another edit meanwhile ends it, and taken back it has never been.
    change("eventEd_pitch", "mousedown");
    change("eventEd_pitch", "value 70");
    say("undo");
    EXPECT_EQ(event().pitch, 60);
    change("eventEd_pitch", "value 71");
    change("eventEd_pitch", "mouseup");
    EXPECT_EQ(event().pitch, 71);
    change("eventEd_velocity", "mousedown");
    change("eventEd_velocity", "value 12");
    say(".command select_nothing");
    EXPECT_EQ(event().velocity, 90);
}

TEST_F(EventInspector, followsTheSelectionAndTheDocument) {
    click(4100, 64);
    EXPECT_EQ(field("eventEd_ID"), "2");
    EXPECT_EQ(field("eventEd_bufferstart"), "0.");
    EXPECT_FALSE(box().inspectors[InspectorKind::Event].fields.at(gensym("eventEd_bufferstart"))->enabled());
    EXPECT_EQ(change("eventEd_bufferstart", "value 5"), Lines());
    say(".key 97");
    EXPECT_EQ(field("eventEd_start"), "hidden") << "there are two";
    change("eventEd_start", "value 5");
    EXPECT_EQ(events(), "1000+2000@60* 4000+500@64*");
    click(9000, 60);
    click(1500, 60);
    drag(at(1500, 60), at(2500, 62));
    EXPECT_EQ(field("eventEd_start"), "2000.");
    say("event id 1 duration 333\n.wait 100");
    EXPECT_EQ(field("eventEd_duration"), "333.");
    say("mouse_mode edit_bpf");
    click(4100, 64, " option");
    EXPECT_EQ(field("eventEd_ID"), "2") << "the event whose curves are edited";
    say("mouse_mode select\ntrack_delete 0");
    EXPECT_EQ(field("eventEd_ID"), "hidden");
    change("eventEd_pitch", "value 5");
    say("undo");
}

TEST_F(EventInspector, followsWhatIsNotDrawn) {
    say("base_frequency 220.");
    EXPECT_EQ(field("eventEd_freq_base"), "220.");
    EXPECT_EQ(field("eventEd_frequency"), "130.81279");
    say(".command bpf_time_absolute");
    EXPECT_EQ(field("eventEd_bpfeditor"), "0 1000. 60., 1 3000. 60.");
    say("showbuffers 0\n.buffer sound");
    EXPECT_FALSE(box().inspectors[InspectorKind::Event].fields.at(gensym("eventEd_bufferend"))->enabled());
    write_silence(folder.file("sound.wav"), 1500);
    say(".buffer sound \"" + folder.file("sound.wav") + "\"");
    EXPECT_EQ(field("eventEd_bufferend"), "1500.");
    for (const char* base : {"0", "-3"}) {
        say(std::string("base_frequency ") + base);
        change("eventEd_frequency", "value 440");
        EXPECT_EQ(event().pitch, 60) << base;
    }
}

TEST_F(EventInspector, theTableOfPointsEditsTheCurve) {
    say("track_bpf_add Gain 0 10 5\nevent id 1 <bpf> Pitch 0 0 500 2 2000 0 </bpf>\n.wait 100");
    EXPECT_EQ(field("eventEd_bpfeditor"), "0 0. 60., 1 500. 62., 2 2000. 60.");
    change("eventEd_bpfeditor", "cellchanged 1 1 64.5");
    EXPECT_EQ(last(), "Move Bpf Point");
    EXPECT_EQ(field("eventEd_bpfeditor"), "0 0. 60., 1 500. 64.5, 2 2000. 60.");
    change("eventEd_bpfeditor", "cellchanged 1 0 9000");
    change("eventEd_bpfeditor", "cellchanged 0 0 300");
    EXPECT_EQ(field("eventEd_bpfeditor"), "0 0. 60., 1 2000. 64.5, 2 2000. 60.") << "points keep their order";
    const size_t items = box().history.items.size();
    change("eventEd_bpfeditor", "cell_mousedown 1 0");
    change("eventEd_bpfeditor", "cellchanged 1 0 800");
    change("eventEd_bpfeditor", "cellchanged 1 0 1000");
    change("eventEd_bpfeditor", "cell_mouseup 1 0");
    EXPECT_EQ(box().history.items.size(), items + 1);
    say("undo");
    EXPECT_EQ(field("eventEd_bpfeditor"), "0 0. 60., 1 2000. 64.5, 2 2000. 60.");
    change("eventEd_bpftypes", "value 1");
    EXPECT_EQ(box().tracks[0]->activebpfindex, 1);
    EXPECT_EQ(field("eventEd_bpfeditor"), "0 0. 5., 1 2000. 5.");
    change("eventEd_bpfeditor", "cellchanged 0 1 99");
    EXPECT_EQ(field("eventEd_bpfeditor"), "0 0. 10., 1 2000. 5.") << "in the range of the type";
    say(".command bpf_time_absolute");
    click(1500, 60);
    EXPECT_EQ(field("eventEd_bpfeditor"), "0 1000. 10., 1 3000. 5.");
    change("eventEd_bpfeditor", "cellchanged 7 1 99");
}

TEST_F(EventInspector, opensOnceAndComesBackWhereItWasClosed) {
    const Patcher& patcher = *box().inspectors[InspectorKind::Event].patcher;
    EXPECT_EQ(patcher.title, "tq.sorvo Event Inspector");
    EXPECT_EQ(patcher.position, (Point{(1920 - patcher.size.width) / 2, (1080 - patcher.size.height) / 2}));
    change("eventEd_selector", "value 2");
    say("event_inspector_open\n.close event 12 34");
    EXPECT_EQ(say(".show fields"), Lines());
    EXPECT_EQ(say(".close event"), Lines{"error tq.sorvo: no inspector \"event\" is open"});
    say(".key 105");
    EXPECT_EQ(box().inspectors[InspectorKind::Event].patcher->position, (Point{12, 34}));
    EXPECT_EQ(field("eventEd_selector"), "2") << "the page, too";
    say("event_inspector_close\n.command select_nothing\nevent_inspector_open");
    EXPECT_EQ(say(".show fields"), Lines()) << "there is no event";
    mouse("down", 1500, 60);
    release();
    mouse("double", 1500, 60);
    EXPECT_EQ(field("eventEd_ID"), "1");
}

struct TrackInspector : InspectorTest {
    TrackInspector() {
        add(1000, 1000, 60);
        say("track_inspector_open");
    }
    ~TrackInspector() override { EXPECT_TRUE(comes_back()); }
};

TEST_F(TrackInspector, changesTheTrack) {
    EXPECT_EQ(field("trackname"), "Piano");
    EXPECT_EQ(field("trackbpfs"), "0 Pitch 0. 131. 0.");
    change("trackname", "value Left Hand");
    EXPECT_EQ(last(), "Change Track Name");
    EXPECT_EQ(box().tracks[0]->name, "Left Hand");
    const size_t items = box().history.items.size();
    change("trackname", "value \"Left Hand\"");
    EXPECT_EQ(box().history.items.size(), items) << "the same name";
    change("trackcolor_jsui", "value 0.5");
    EXPECT_EQ(last(), "Change Track Color");
    EXPECT_EQ(field("trackcolor_jsui"), "0.5");
    EXPECT_FALSE(change("trackdestination", "value gm:12").empty()) << "the tracks are reported";
    EXPECT_EQ(box().tracks[0]->destination, gensym("gm:12"));
    EXPECT_EQ(change("trackdiscardnoteoutput", "value 1"), Lines());
    EXPECT_EQ(change("trackdiscarddefaultpitchbpfoutput", "value 1"), Lines());
    EXPECT_TRUE(box().tracks[0]->discardnoteoutput && box().tracks[0]->discarddefaultpitchbpfoutput);
    say("undo\nundo");
    EXPECT_EQ(field("trackname"), "Piano");
    say("track_add Other");
    EXPECT_EQ(field("trackname"), "Other");
    EXPECT_EQ(field("trackdestination"), "\"\"");
    say("track_delete 0\ntrack_delete 0");
    EXPECT_EQ(field("trackname"), "hidden");
    say("undo");
    EXPECT_NE(field("trackname"), "hidden");
}

TEST_F(TrackInspector, addsChangesAndDeletesTypes) {
    struct {
        const char *name, *change, *shown, *edit;
    } const rows[] = {
        {"trackbpfs", "rowadded Gain 0 2 1", "0 Pitch 0. 131. 0., 1 Gain 0. 2. 1.", "Add Bpf Type To Track"},
        {"trackbpfs", "rowadded", "0 Pitch 0. 131. 0., 1 Gain 0. 2. 1., 2 Bpftype 0. 1. 0.",
         "Add Bpf Type To Track"},
        {"trackbpfs", "rowdeleted 2", "0 Pitch 0. 131. 0., 1 Gain 0. 2. 1.", "Delete Bpf Type From Track"},
        {"trackparams", "rowadded Cutoff 0 100 50 11", "0 Cutoff 0. 100. 50. 11",
         "Add Parameter Type To Track"},
    };
    for (const auto& row : rows) {
        const std::string before = field(row.name);
        change(row.name, row.change);
        EXPECT_EQ(field(row.name), row.shown);
        EXPECT_EQ(last(), row.edit);
        say("undo");
        EXPECT_EQ(field(row.name), before);
        say("redo");
        EXPECT_EQ(field(row.name), row.shown);
    }
    box().tracks[0]->parametertypes[0]->id = 7;  // a file may say so
    change("trackbpfs", "cellchanged 1 0 Level");
    EXPECT_EQ(box().tracks[0]->bpftypes[1]->name, gensym("Gain")) << "not before the cell is left";
    change("trackbpfs", "cell_mouseup 1 0");
    EXPECT_EQ(last(), "Change Bpf Type On Track");
    EXPECT_EQ(box().tracks[0]->bpftypes[1]->name, gensym("Level"));
    change("trackparams", "cellchanged 0 2 200");
    change("trackparams", "cell_mouseup 0 2");
    EXPECT_EQ(last(), "Change Parameter Type On Track");
    EXPECT_EQ(field("trackparams"), "0 Cutoff 0. 200. 50. 11");
    change("trackparams", "rowadded Width 0 1 0 0");
    const size_t items = box().history.items.size();
    change("trackparams", "cellchanged 1 0 Cutoff");
    change("trackparams", "cell_mouseup 1 0");
    EXPECT_EQ(field("trackparams"), "0 Cutoff 0. 200. 50. 11, 1 Width 0. 1. 0. 0") << "the name is taken";
    change("trackparams", "cell_mouseup 0 2");
    change("trackbpfs", "rowdeleted 0");
    change("trackbpfs", "cellchanged 0 0 Bend");
    change("trackbpfs", "cell_mouseup 0 0");
    EXPECT_EQ(box().history.items.size(), items) << "nothing has changed, and \"Pitch\" cannot";
    EXPECT_EQ(field("trackbpfs"), "0 Pitch 0. 131. 0., 1 Level 0. 2. 1.");
    change("trackparams", "rowdeleted 0");
    EXPECT_EQ(last(), "Delete Parameter Type From Track");
    say("undo\nparameterdisplay 1\n.choose Cutoff");
    const Rect& lane = box().layout[Part::ParameterDisplay];
    click({lane.x + 9, lane.y + 9}, " right");
    change("trackparams", "cellchanged 0 0 Filter");
    change("trackparams", "cell_mouseup 0 0");
    EXPECT_EQ(box().tracks[0]->parametertypes[0]->id, 7) << "no table shows it";
    EXPECT_EQ(box().tracks[0]->displayedparameter, gensym("Filter"));
    say("undo");
    EXPECT_EQ(box().tracks[0]->displayedparameter, gensym("Cutoff"));
    EXPECT_FALSE(change("trackbpfs", "cleared").empty()) << "the curves are reported";
    EXPECT_EQ(field("trackbpfs"), "0 Pitch 0. 131. 0., 1 Level 0. 2. 1.");
}

struct DocumentInspector : InspectorTest {
    DocumentInspector() { say("document_inspector_open"); }
};

TEST_F(DocumentInspector, changesTheHeaderAndTheMeter) {
    EXPECT_EQ(field("documentEd_title"), "No Title");
    EXPECT_EQ(field("documentEd_author"), "Anonymous");
    EXPECT_EQ(field("documentEd_signature"), "0 1 4 4");
    change("documentEd_title", "value Song of Songs");
    change("documentEd_memo", "value first second");
    EXPECT_EQ(box().info.title, "Song of Songs");
    EXPECT_TRUE(prseq_getdirtyflag(box()));
    EXPECT_EQ(change("documentEd_signature", "cellchanged 0 1 3"), Lines{"post barregion 1 3 4"});
    change("documentEd_signature", "rowadded 5 7 8");
    EXPECT_EQ(field("documentEd_signature"), "0 1 3 4, 1 5 7 8");
    EXPECT_EQ(change("documentEd_signature", "cellchanged 1 2 3"),
              (Lines{"post barregion 5 7 3", "error tq.sorvo: bad value"}));
    EXPECT_EQ(field("documentEd_signature"), "0 1 3 4, 1 5 7 8");
    say("write \"" + folder.file("x.json") + "\"");
    EXPECT_TRUE(field("filename").ends_with("x.json"));
    say("write \"" + folder.file("y.json") + "\"");
    EXPECT_TRUE(field("filename").ends_with("y.json"));
    say(".answer \"" + folder.file("y.json") + "\"\nwrite");
    EXPECT_EQ(field("filename"), "y.json") << "of a document that does not differ from its file, too";
    say(".command new\n.wait 10");
    EXPECT_EQ(field("documentEd_title"), "No Title");
    EXPECT_EQ(field("documentEd_memo"), "\"\"");
    say("read \"" + folder.file("x.json") + "\"\n.wait 10");
    EXPECT_EQ(field("documentEd_title"), "Song of Songs");
    EXPECT_EQ(box().info.memo, "first second");
}

TEST_F(InspectorTest, withoutItsFileItStaysClosed) {
    ::setenv("SORVO_RESOURCES", folder.path.c_str(), 1);
    const Lines said = say("document_inspector_open");
    ::unsetenv("SORVO_RESOURCES");
    ASSERT_EQ(said.size(), 1u);
    EXPECT_TRUE(said[0].starts_with("error tq.sorvo: could not load patcher ") &&
                said[0].ends_with("tqsorvo_documenteditor.maxpat"))
        << said[0];
    EXPECT_EQ(say(".show fields"), Lines());
    say("document_inspector_open");
    EXPECT_EQ(field("documentEd_title"), "No Title");
    const Point name{10, box().layout[Part::TrackDisplay].y + 26};
    mouse("double", name);
    EXPECT_EQ(field("trackname"), "Piano");
}

}  // namespace
}  // namespace tq::test
