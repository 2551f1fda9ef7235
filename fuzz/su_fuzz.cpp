#include <cstdint>
#include <fstream>
#include <string>

#include "records/record_display.h"
#include "records/su_loading.h"
#include "support/counting_picture.h"
#include "support/test_ports.h"

// SU reader: counts, channel scan, header array, loading with its questions, display in every style. The
// first byte of the input chooses style and options, the others are the file.

namespace {

using namespace tarnvik;

/// A user who agrees to everything.
class Agreeing : public Prompts {
  public:
    Answer Message(const std::string&, const std::string&, Icon, Buttons buttons) override {
        const bool yes = buttons == Buttons::YesNo || buttons == Buttons::RenumberKeepCancel;
        return yes ? Answer::Yes : Answer::Ok;
    }
    std::string Input(const std::string&, const std::string&, const std::string& initial) override {
        return initial;
    }
    std::string Open_File(const FileRequest&) override { return Path; }
    std::string Save_File(const FileRequest&) override { return {}; }
    std::optional<Colour> Choose_Colour(Colour) override { return std::nullopt; }
    std::optional<std::string> Choose_Font(const std::string&) override { return std::nullopt; }
    std::string Path;
};

class CountingDisplay : public test::RecordingDisplay {
  public:
    Picture& Canvas_Of(Canvas) override { return Counting; }
    test::CountingPicture Counting{640, 480};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TemporaryFolder folder;
    if (size < 1) return 0;
    const std::string path = folder / "input.su";
    std::ofstream(path, std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char*>(data) + 1, static_cast<std::streamsize>(size - 1));
    Workspace workspace;
    Agreeing user;
    user.Path = path;
    CountingDisplay display;
    test::RecordingLauncher launcher;
    Ports ports{user, display, launcher};
    workspace.Record.Style = data[0] % 5;
    workspace.Record.EqualiseTraces = (data[0] & 8) != 0;
    workspace.Record.ClipAmplitude = (data[0] & 16) != 0;
    workspace.Record.SeveralSpreads = (data[0] & 32) != 0;
    Display_Record(workspace, ports, path);
    Load_SU_File(workspace, ports);
    Display_Record(workspace, ports, path);
    workspace.Record.LastTrace = 7;
    Display_Record(workspace, ports, path);
    SuTraces file(path);
    for (int word = 1; word <= header_words; ++word)
        file.Word(5, word);
    return 0;
}
