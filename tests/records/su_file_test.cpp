#include "records/su_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <filesystem>
#include <numeric>

#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

std::vector<std::int64_t> Run_Of(std::int64_t first, int count) {
    std::vector<std::int64_t> run(static_cast<std::size_t>(count));
    std::iota(run.begin(), run.end(), first);
    return run;
}

TEST(HeaderWords, EveryWordStandsBehindTheOneBeforeWithoutGapOrOverlap) {
    int next = 0;
    for (int word = 1; word <= header_words; ++word) {
        EXPECT_EQ(Header_Word(word).Offset, next) << word;
        next += Header_Word(word).Type == WordType::Int16 ? 2 : 4;
    }
    EXPECT_EQ(next, 236);
    EXPECT_THROW(Header_Word(0), Fault);
    EXPECT_THROW(Header_Word(91), Fault);
}

class SuFile : public testing::Test {
  protected:
    TemporaryFolder Folder;
    Workspace Work;
    std::string Write(const SuBuilder& builder) {
        Work.Project.SuFile = builder.Write(Folder / "line.su");
        return Work.Project.SuFile;
    }
};

TEST_F(SuFile, AWrittenWordChangesItsOwnBytesOnlyAndReadsBack) {
    const SuBuilder builder(3, 5);
    const std::string path = Write(builder);
    for (int word = 1; word <= header_words; ++word) {
        if (word == words::ns) continue;  // it would move the other traces
        const HeaderWord& entry = Header_Word(word);
        builder.Write(path);
        ASSERT_EQ(SuWriter(path, nullptr).Set_Word(2, word, -2), Stored::Yes);
        const int size = entry.Type == WordType::Int16 ? 2 : 4;
        const std::string after = Content_Of(path);
        const auto changed = Changed_Bytes(builder.Bytes, after);
        const auto meant = Run_Of(240 + 20 + entry.Offset, size);
        for (const auto place : changed)
            EXPECT_NE(std::find(meant.begin(), meant.end(), place), meant.end()) << word << " at " << place;
        EXPECT_EQ(after.size(), builder.Bytes.size());
        const double read = SuTraces(path).Word(2, word).value_or(0);
        if (entry.Type != WordType::Float32) {
            EXPECT_EQ(read, -2) << word;
        } else {
            // The integer's bits, read as a float: meant.
            EXPECT_TRUE(std::isnan(read)) << word;
        }
    }
}

TEST_F(SuFile, WholeNumbersTypedIntoFloatWordsReadBackAsTinyFloats) {
    SuWriter file(Write(SuBuilder(1, 5).Put_Float(1, 188, 2.5F)), nullptr);
    ASSERT_EQ(file.Set_Word(1, 73, 3), Stored::Yes);
    ASSERT_EQ(file.Set_Word(1, 78, 3), Stored::Yes);
    const double three_as_float = std::bit_cast<float>(std::int32_t{3});
    EXPECT_EQ(file.Word(1, 73), three_as_float);
    EXPECT_EQ(file.Word(1, 78), three_as_float);
    EXPECT_EQ(file.Word(1, 74), 2.5);
}

TEST_F(SuFile, AValueIsRoundedHalvesToEvenAndOneTooLargeLeavesTheWord) {
    const std::string path = Write(SuBuilder(1, 5).Put16(1, 222, 77).Put32(1, 36, 77));
    struct Case {
        int Word;
        double Value;
        Stored Result;
        double After;
    };
    const Case cases[] = {
        {86, 32767.4, Stored::Yes, 32767},
        {86, 32768, Stored::DoesNotFit, 32767},
        {86, -32769, Stored::DoesNotFit, 32767},
        {86, 2.5, Stored::Yes, 2},
        {86, 3.5, Stored::Yes, 4},
        {12, 40000, Stored::Yes, 40000},
        {12, 3e9, Stored::DoesNotFit, 40000},
        {12, std::nan(""), Stored::DoesNotFit, 40000},
    };
    SuWriter file(path, nullptr);
    for (const Case& c : cases) {
        EXPECT_EQ(file.Set_Word(1, c.Word, c.Value), c.Result) << c.Value;
        EXPECT_EQ(SuTraces(path).Word(1, c.Word), c.After) << c.Value;
    }
}

TEST_F(SuFile, NothingIsWrittenBeforeOrBehindTheTraces) {
    SuBuilder builder(2, 5);
    builder.Bytes.resize(builder.Bytes.size() - 100);  // the second trace lost its samples and more
    const std::string path = Write(builder);
    SuWriter file(path, nullptr);
    const std::vector<float> samples(5, 1.0F);
    EXPECT_EQ(file.Set_Word(0, words::ep, 1), Stored::No);
    EXPECT_EQ(file.Set_Word(3, words::ep, 1), Stored::No);
    EXPECT_EQ(file.Set_Word(2, words::First_Breaks, 1), Stored::No);
    EXPECT_EQ(file.Set_Samples(2, samples), Stored::No);
    EXPECT_FALSE(file.Reason().empty());
    EXPECT_TRUE(Content_Of(path) == builder.Bytes);
    EXPECT_EQ(file.Pick_Ms(2), 0);
    EXPECT_FALSE(file.Word(3, words::ep).has_value());
}

TEST_F(SuFile, SamplesAreReadAndWrittenInPlace) {
    const SuBuilder builder = SuBuilder(2, 3).Samples(2, {1, -2, 3});
    const std::string path = Write(builder);
    SuWriter file(path, nullptr);
    std::vector<float> samples(4, 9);
    EXPECT_EQ(file.Samples(2, samples), 3);
    EXPECT_EQ(samples, (std::vector<float>{1, -2, 3, 9}));
    EXPECT_EQ(file.Set_Samples(1, std::vector<float>{5, 6, 7, 8}), Stored::Yes);
    EXPECT_TRUE(Content_Of(path) == SuBuilder(builder).Samples(1, {5, 6, 7}).Bytes);
}

TEST_F(SuFile, TraceCountIsRoundedHalvesToEven) {
    // Traces of 260 bytes.
    const std::pair<int, int> cases[] = {{260 * 3, 3},       {260 * 3 + 129, 3}, {260 * 3 + 131, 4},
                                         {260 * 2 + 130, 2}, {260 * 3 + 130, 4}, {130, 0}};
    for (const auto& [length, traces] : cases) {
        SuBuilder builder(4, 5);
        builder.Bytes.resize(static_cast<std::size_t>(length));
        Work.Record.NbTraces = -1;
        EXPECT_TRUE(Recherche_Nb_Trace(Work.Record, Write(builder)));
        EXPECT_EQ(Work.Record.NbTraces, traces) << length;
    }
    EXPECT_EQ(Work.Record.SamplesWord, 5);
    EXPECT_EQ(Work.Record.SampleInterval, 1000);
}

TEST_F(SuFile, WhatCannotBeReadKeepsItsValue) {
    Work.Record.SamplesWord = 7;
    Work.Record.SampleInterval = 250;
    Work.Record.NbTraces = 99;
    EXPECT_FALSE(Recherche_Nb_Trace(Work.Record, Folder / "none.su"));
    EXPECT_FALSE(Recherche_Nb_Trace(Work.Record, Folder.Path));
    EXPECT_EQ(Work.Record.NbTraces, 99);
    SuBuilder builder(1, 0);
    builder.Bytes.resize(50);
    EXPECT_TRUE(Recherche_Nb_Trace(Work.Record, Write(builder)));
    EXPECT_EQ(Work.Record.SamplesWord, 7);
    EXPECT_EQ(Work.Record.SampleInterval, 250);
    // A negative count whose trace has no bytes: no quotient.
    Work.Record.NbTraces = 99;
    Recherche_Nb_Trace(Work.Record, Write(SuBuilder(2, 0).Put16(1, 114, -60)));
    EXPECT_EQ(Work.Record.NbSamples, -60);
    EXPECT_EQ(Work.Record.NbTraces, 99);
}

TEST_F(SuFile, PositionsReachBeyondFourGigabytes) {
    // 20000 samples a trace: trace 60001 begins at 4.8 GB. The file has holes and takes no room.
    const std::string path = Write(SuBuilder(1, 20000));
    const std::int64_t length = 70000 * Trace_Length(20000);
    std::filesystem::resize_file(path, static_cast<std::uintmax_t>(length));
    SuWriter file(path, nullptr);
    EXPECT_EQ(file.Set_Word(60001, words::ep, 4711), Stored::Yes);
    EXPECT_EQ(file.Nb_Traces(), 70000);
    EXPECT_EQ(file.Word(60001, words::ep), 4711);
    PositionedFile raw(path, PositionedFile::Access::Read);
    std::int32_t value = 0;
    EXPECT_TRUE(raw.Read(4'814'400'016, &value, 4));
    EXPECT_EQ(value, 4711);
    // The place that 32-bit positions would have hit.
    EXPECT_TRUE(raw.Read(4'814'400'016 - (std::int64_t{1} << 32), &value, 4));
    EXPECT_EQ(value, 0);
    EXPECT_EQ(raw.Length(), length);
}

}  // namespace
}  // namespace tarnvik::test
