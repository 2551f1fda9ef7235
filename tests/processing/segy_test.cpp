#include <gtest/gtest.h>

#include <algorithm>
#include <bit>

#include "processing/instruments/field_reader.h"
#include "support/field_file_builder.h"

namespace tarnvik::test {
namespace {

struct Read {
    FieldFile File;
    std::vector<std::vector<float>> Samples;
    std::vector<TraceHeader> Headers;
};

Read Read_All(const std::string& bytes) {
    MemorySource source(bytes);
    const auto reader = Open_Field_File(source, "line.sgy");
    Read read{reader->File(), {}, {}};
    for (std::int64_t trace = 1; read.File.Usable && trace <= read.File.Traces; ++trace) {
        read.Headers.push_back(reader->Header(trace).Words);
        reader->Samples(trace, read.Samples.emplace_back());
    }
    return read;
}

bool Told(const std::vector<std::string>& list, const std::string& part) {
    return std::any_of(list.begin(), list.end(),
                       [&](const std::string& sentence) { return sentence.find(part) != std::string::npos; });
}

std::string Floats(bool big, const std::vector<float>& samples) {
    ByteRow row(big);
    for (const float sample : samples)
        row.Real32(sample);
    return row.Bytes;
}

/// Two traces of three samples, 500 microseconds, told everywhere.
SegyBuilder Small(bool big = true) {
    SegyBuilder builder;
    builder.Big = big;
    builder.Format = 5;
    builder.Samples = builder.TraceSamples = 3;
    builder.Interval = builder.TraceInterval = 500;
    builder.Traces = {{Floats(big, {1, -2, 3}), {}}, {Floats(big, {4, 5, -6}), {}}};
    return builder;
}

TEST(SegY, DecodesEachFormatInBothByteOrders) {
    const std::vector<float> values = {-118.625F, 0, 1, 100, -1, 0.15625F};
    const std::vector<float> whole = {-118, 0, 1, 100, -1, 127};
    EXPECT_EQ(Ibm_Float(-118.625), 0xC276A000U) << "the builder's own arithmetic";
    const std::pair<int, const char*> formats[] = {{1, "ibm32"},   {2, "int32"},   {3, "int16"},
                                                   {5, "float32"}, {6, "float64"}, {8, "int8"}};
    for (const bool big : {true, false}) {
        for (const bool ebcdic : {true, false}) {
            for (const auto& [format, name] : formats) {
                SCOPED_TRACE(std::string(name) + (big ? " big" : " little") +
                             (ebcdic ? " EBCDIC" : " ASCII"));
                const bool real = format == 1 || format == 5 || format == 6;
                const std::vector<float>& samples = real ? values : whole;
                ByteRow data(big);
                for (const float sample : samples) {
                    const auto number = static_cast<std::uint64_t>(static_cast<std::int64_t>(sample));
                    if (format == 1) data.U32(Ibm_Float(sample));
                    if (format == 2) data.U32(number);
                    if (format == 3) data.U16(number);
                    if (format == 5) data.Real32(sample);
                    if (format == 6) data.Real64(sample);
                    if (format == 8) data.Text(std::string(1, static_cast<char>(number)));
                }
                SegyBuilder builder = Small(big);
                builder.Ebcdic = ebcdic;
                builder.Revision = format == 6 ? 2 : 1;
                builder.Format = format;
                builder.Samples = builder.TraceSamples = static_cast<int>(samples.size());
                builder.Traces = {{data.Bytes, {}}, {data.Bytes, {}}};
                const Read read = Read_All(builder.Bytes());
                ASSERT_TRUE(read.File.Usable);
                EXPECT_EQ(read.File.Format, "SEG-Y");
                EXPECT_EQ(read.File.ByteOrder, big ? "big" : "little");
                EXPECT_EQ(read.File.SampleFormat, name);
                EXPECT_EQ(read.File.TextHeader, ebcdic ? "EBCDIC" : "ASCII");
                EXPECT_EQ(read.File.Notes.front(), "C 1 CLIENT NOBODY  LINE 7");
                EXPECT_TRUE(read.File.Faults.empty());
                ASSERT_EQ(read.Samples.size(), 2U);
                EXPECT_EQ(read.Samples[1], samples);
            }
        }
    }
}

TEST(SegY, KeepsTheWordsBelowByte180AndNoOthers) {
    for (const bool big : {true, false}) {
        SegyBuilder builder = Small(big);
        builder.Traces[1].second = {{8, 4, 1007},  {12, 4, 24},   {28, 2, 1},     {30, 2, 5},
                                    {40, 4, -250}, {70, 2, -100}, {72, 4, -1250}, {80, 4, 70000},
                                    {108, 2, -20}, {178, 2, -2},  {180, 4, 77},   {222, 2, 123}};
        const Read read = Read_All(builder.Bytes());
        ASSERT_EQ(read.Headers.size(), 2U);
        const std::pair<int, double> expected[] = {
            {words::fldr, 1007},     {words::tracf, 24}, {words::trid, 1},   {words::nvs, 5},
            {words::gelev, -250},    {words::sx, -1250}, {words::gx, 70000}, {words::scalco, -100},
            {words::delrt, -20},     {71, -2},           {words::dt, 500},   {words::ns, 3},
            {words::First_Breaks, 0}};
        for (const auto& [word, value] : expected)
            EXPECT_EQ(read.Headers[1].Word(word), value) << Header_Word(word).Name;
        for (std::size_t at = 180; at < header_length; ++at)
            EXPECT_EQ(read.Headers[1].Bytes.at(at), 0) << at;
        EXPECT_EQ(Places_In_Words(read.Headers[1]).ShotX, -12.5);
    }
}

TEST(SegY, FindsTheTracesBehindFurtherTextHeaders) {
    for (const bool ebcdic : {true, false}) {
        for (const int told : {2, -1}) {
            SegyBuilder builder = Small();
            builder.Ebcdic = ebcdic;
            builder.Revision = 1;
            builder.FurtherTexts = {"((SEG: Layout))", "((SEG: EndText))"};
            builder.FurtherTextsTold = told;
            const Read read = Read_All(builder.Bytes());
            ASSERT_EQ(read.File.Traces, 2) << ebcdic << told;
            EXPECT_EQ(read.Samples[1], (std::vector<float>{4, 5, -6}));
            EXPECT_TRUE(Told(read.File.Assumed, "begin at byte 10000"));
        }
    }
    // More than the file has room for.
    SegyBuilder builder = Small();
    builder.Revision = 1;
    builder.FurtherTextsTold = 500;
    const Read read = Read_All(builder.Bytes());
    EXPECT_EQ(read.File.Traces, 2);
    EXPECT_TRUE(Told(read.File.Faults, "500 further text headers"));
}

TEST(SegY, TakesTheCountsThatFitTheFile) {
    SegyBuilder builder = Small();
    builder.Samples = builder.Interval = 0;
    Read read = Read_All(builder.Bytes());
    EXPECT_EQ(read.File.Traces, 2);
    EXPECT_EQ(read.File.Interval, 500);
    EXPECT_TRUE(Told(read.File.Assumed, "no sample count: 3, that of the first trace"));
    EXPECT_TRUE(Told(read.File.Assumed, "no sample interval: 500"));

    for (const auto& [of_file, of_trace] : {std::pair{3, 100}, {100, 3}, {3, 0}, {2, 3}}) {
        builder = Small();
        builder.Samples = of_file;
        builder.TraceSamples = of_trace;
        builder.TraceInterval = 250;
        read = Read_All(builder.Bytes());
        EXPECT_EQ(read.File.Traces, 2) << of_file << " " << of_trace;
        EXPECT_EQ(read.File.Samples, 3) << of_file << " " << of_trace;
        EXPECT_EQ(Told(read.File.Assumed, "fits the length of the file"), of_trace != 0);
        EXPECT_TRUE(Told(read.File.Assumed, "500 is taken"));
    }

    const std::string bytes = Small().Bytes();
    for (const std::size_t cut : {1U, 12U, 200U}) {
        read = Read_All(bytes.substr(0, bytes.size() - cut));
        EXPECT_EQ(read.File.Traces, 1) << cut;
        EXPECT_EQ(read.Samples[0], (std::vector<float>{1, -2, 3}));
        EXPECT_TRUE(Told(read.File.Faults, "ends within trace 2: 1 whole traces are taken")) << cut;
    }
}

TEST(SegY, FollowsTheNumbersOfRevision2) {
    for (const bool big : {true, false}) {
        SegyBuilder builder = Small(big);
        builder.Revision = 2;
        builder.Samples = builder.Interval = 0;
        builder.TraceSamples = 999;
        // A text nobody counts before the traces, a further header in each trace, a trailer behind them.
        builder.FurtherTexts = {"text"};
        builder.Traces[0].first.insert(0, std::string(240, 'h'));
        builder.Traces[1].first.insert(0, std::string(240, 'h'));
        ByteRow file(big);
        file.Text(builder.Bytes()).Text(std::string(3200, 't'));
        file.Put(3200 + 68, 3, 4).Put(3200 + 72, std::bit_cast<std::uint64_t>(62.5), 8);
        file.Put(3200 + 96, 0x01020304, 4)
            .Put(3200 + 306, 1, 4)
            .Put(3200 + 320, 6800, 8)
            .Put(3200 + 328, 1, 4);
        const Read read = Read_All(file.Bytes);
        EXPECT_EQ(read.File.ByteOrder, big ? "big" : "little");
        ASSERT_EQ(read.File.Traces, 2);
        EXPECT_EQ(read.File.Interval, 62.5);
        EXPECT_EQ(read.Samples[1], (std::vector<float>{4, 5, -6}));
        EXPECT_TRUE(Told(read.File.Assumed, "62.5 microseconds, is no whole number: dt is 62"));
        EXPECT_TRUE(Told(read.File.Faults, "another sample count; 3 samples are taken."));
    }
}

TEST(SegY, RefusesWhatCannotBeReadAndSaysWhy) {
    const auto refused = [](const SegyBuilder& builder, const std::string& why) {
        const FieldFile file = Read_All(builder.Bytes()).File;
        return !file.Usable && Told(file.Faults, why);
    };
    SegyBuilder builder = Small();
    builder.Format = 4;
    EXPECT_TRUE(refused(builder, "sample format 4, which cannot be read"));
    builder = Small();
    builder.Samples = builder.TraceSamples = 0;
    EXPECT_TRUE(refused(builder, "the traces cannot be found"));
    builder = Small();
    builder.Samples = builder.TraceSamples = 40000;
    builder.Traces = {{std::string(160000, 'x'), {}}};
    EXPECT_TRUE(refused(builder, "SU file utility"));
    builder.Traces.clear();
    EXPECT_TRUE(refused(builder, "no whole trace"));
    builder = Small();
    builder.Interval = builder.TraceInterval = 40000;
    EXPECT_TRUE(refused(builder, "does not fit the word dt"));

    // A header without text is known by its numbers.
    std::string bytes = Small().Bytes();
    std::fill_n(bytes.begin(), 3200, '\0');
    const Read read = Read_All(bytes);
    EXPECT_EQ(read.File.Traces, 2);
    EXPECT_TRUE(Told(read.File.Assumed, "holds no text"));
}

}  // namespace
}  // namespace tarnvik::test
