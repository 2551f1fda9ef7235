#include "records/su_check.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "records/su_loading.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

SuCheck Check(const std::string& bytes) {
    return Check_Su(
        [&bytes](std::int64_t position, std::int64_t count) {
            if (position >= static_cast<std::int64_t>(bytes.size())) return std::string();
            return bytes.substr(static_cast<std::size_t>(position), static_cast<std::size_t>(count));
        },
        static_cast<std::int64_t>(bytes.size()));
}

/// The same file as a machine of the other byte order writes it.
std::string Big_Endian(std::string bytes) {
    // Turning looks for ns in the other order, and turns it as well.
    std::swap(bytes[114], bytes[115]);
    bytes = Turned_Round(std::move(bytes));
    std::swap(bytes[114], bytes[115]);
    return bytes;
}

/// A SEG-Y file: text head, binary head with interval, samples and format, and a trace.
std::string Seg_Y(char blank) {
    std::string bytes(3200, blank);
    std::string binary(400, '\0');
    binary[17] = '\x7D';  // dt 125, big-endian
    binary[20] = '\x01';  // ns 256
    binary[25] = '\x01';
    return bytes + binary + std::string(240 + 256 * 4, '\0');
}

TEST(SuCheck, TellsWhatAFileIs) {
    const SuBuilder good = SuBuilder(12, 100).Records(6);
    const auto changed = [&good](const std::function<void(SuBuilder&)>& change) {
        SuBuilder builder(good);
        change(builder);
        return builder.Bytes;
    };
    using Kind = SuCheck::Kind;
    const struct {
        const char* Name;
        std::string Bytes;
        Kind Is;
        std::size_t Wrong;
        const char* Says;
    } cases[] = {
        {"good", good.Bytes, Kind::Su, 0, ""},
        {"no header words but ns and dt", SuBuilder(3, 2048, 250).Bytes, Kind::Su, 0, ""},
        {"empty", "", Kind::Unusable, 1, "empty"},
        {"shorter than a header", std::string(100, '\1'), Kind::Unusable, 1, "100 bytes"},
        {"shorter than a trace", good.Bytes.substr(0, 500), Kind::Unusable, 1, "640"},
        {"ns 0", changed([](SuBuilder& b) { b.Put16(1, 114, 0); }), Kind::Unusable, 1, "is 0"},
        {"ns negative", changed([](SuBuilder& b) { b.Put16(1, 114, -5); }), Kind::Unusable, 1, "32767"},
        {"dt 0", changed([](SuBuilder& b) {
             for (int trace = 1; trace <= 12; ++trace)
                 b.Put16(trace, 116, 0);
         }),
         Kind::Su, 1, "Assumed: no times"},
        {"cut", good.Bytes.substr(0, good.Bytes.size() - 300), Kind::Su, 1, "340 bytes are left over"},
        {"cut by more", good.Bytes.substr(0, good.Bytes.size() - 400), Kind::Su, 1,
         "Assumed: 11 traces; the rest"},
        {"cut and of two kinds", changed([](SuBuilder& b) {
             b.Put16(7, 114, 99).Put16(9, 116, 500);
             b.Bytes.pop_back();
         }),
         Kind::Su, 2,
         "2 traces tell another ns or dt than the first trace (ns = 100, dt = 1000): trace 7: ns = 99"},
        {"text", "5 100 24\r\n" + std::string(400, '8') + "\n", Kind::Text, 1, "text file"},
        {"SEG-Y, EBCDIC", Seg_Y('\x40'), Kind::SegY, 1, "SEG-Y"},
        {"SEG-Y, ASCII", Seg_Y(' '), Kind::SegY, 1, "SEG-Y"},
        {"SEG-2", "\x55\x3A\x01" + std::string(600, '\0'), Kind::Seg2, 1, "SEG-2"},
    };
    for (const auto& c : cases) {
        const SuCheck check = Check(c.Bytes);
        EXPECT_EQ(check.Is, c.Is) << c.Name;
        EXPECT_EQ(check.Wrong.size(), c.Wrong) << c.Name;
        EXPECT_EQ(check.Message("a.su").empty(), check.Good()) << c.Name;
        EXPECT_NE(check.Message("a.su").find(c.Says), std::string::npos) << check.Message("a.su");
    }
}

TEST(SuCheck, KnowsTheByteOrderWhateverTheCountsAre) {
    // 2048 samples of the other order read as 8, and the size is a multiple of both traces.
    for (const int samples : {8, 100, 256, 257, 1000, 2048, 4000, 4096}) {
        for (const int interval : {125, 250, 256, 500, 512, 1000, 2000}) {
            for (const bool numbered : {true, false}) {
                SuBuilder builder(4, samples, interval);
                if (numbered) builder.Records(2);
                builder.Sample(2, 3, 1.5F).Put32(3, 80, -123456).Put16(3, 70, -100).Put_Float(4, 184, 2.5F);
                EXPECT_TRUE(Check(builder.Bytes).Good()) << samples << " " << interval;
                const std::string big = Big_Endian(builder.Bytes);
                EXPECT_EQ(Check(big).Is, SuCheck::Kind::BigEndian) << samples << " " << interval;
                EXPECT_TRUE(Turned_Round(big) == builder.Bytes) << samples << " " << interval;
            }
        }
    }
}

TEST(SuCheck, LoadingTellsOnceAndNeverChangesTheFile) {
    TemporaryFolder folder;
    Workspace work;
    TestPorts outside;
    const auto load = [&](const std::string& path) {
        outside.Prompts.Expect_File("Load ", path);
        return Load_SU_File(work, outside.Ports);
    };
    const SuBuilder good = SuBuilder(12, 100).Records(6);
    SuBuilder cut(good);
    cut.Bytes.resize(cut.Bytes.size() - 100);
    const std::string cut_file = cut.Write(folder / "cut.su");
    const std::string question = Check(cut.Bytes).Message(cut_file);
    outside.Prompts.Messages.clear();
    outside.Prompts.Expect_File("Load ", cut_file);
    outside.Prompts.Expect(question, Answer::Cancel);
    EXPECT_FALSE(Load_SU_File(work, outside.Ports));
    EXPECT_EQ(work.Record.NbTraces, 0);
    outside.Prompts.Expect_File("Load ", cut_file);
    outside.Prompts.Expect(question, Answer::Ok);
    EXPECT_TRUE(Load_SU_File(work, outside.Ports));
    EXPECT_EQ(outside.Prompts.Messages.size(), 2U);

    SuBuilder text(good);
    text.Bytes = "5 100 24\r\n";
    EXPECT_FALSE(load(text.Write(folder / "text.su")));
    EXPECT_EQ(outside.Prompts.Messages.back().WithIcon, Icon::Critical);

    // A big-endian file is opened by a copy.
    SuBuilder other(good);
    other.Bytes = Big_Endian(good.Bytes);
    const std::string other_file = other.Write(folder / "other.su");
    const std::string ask = Check(other.Bytes).Message(other_file);
    const auto load_other = [&](Answer answer, const std::string& copy) {
        outside.Prompts.Expect_File("Load ", other_file);
        outside.Prompts.Expect_Start(ask, answer);
        if (answer == Answer::Yes) outside.Prompts.Expect_File("Copy in the right byte order", copy);
        return Load_SU_File(work, outside.Ports);
    };
    EXPECT_FALSE(load_other(Answer::No, ""));
    EXPECT_FALSE(load_other(Answer::Yes, other_file)) << "never over the file itself";
    EXPECT_TRUE(load_other(Answer::Yes, folder / "other_le.su"));
    EXPECT_EQ(work.Project.SuFile, folder / "other_le.su");
    EXPECT_TRUE(Content_Of(folder / "other_le.su") == good.Bytes);
    EXPECT_TRUE(Content_Of(other_file) == other.Bytes);
}

}  // namespace
}  // namespace tarnvik::test
