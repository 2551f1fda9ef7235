#include <gtest/gtest.h>

#include <algorithm>

#include "processing/instruments/field_reader.h"
#include "processing/instruments/seg2_words.h"
#include "support/field_file_builder.h"

namespace tarnvik::test {
namespace {

/// A file in memory and its reader.
class Opened {
  public:
    explicit Opened(std::string bytes)
        : Content(std::move(bytes)), Source(Content), Reader(Open_Field_File(Source, "shot.sg2")) {}

    const FieldFile& File() const { return Reader->File(); }
    double Word(std::int64_t trace, int word) { return Reader->Header(trace).Words.Word(word); }
    TracePlaces Places(std::int64_t trace) { return Reader->Header(trace).Places; }
    std::vector<float> Samples(std::int64_t trace) {
        std::vector<float> samples;
        Reader->Samples(trace, samples);
        return samples;
    }
    bool Assumed(const std::string& part) const { return Told(File().Assumed, part); }
    bool Faulty(const std::string& part) const { return Told(File().Faults, part); }

  private:
    static bool Told(const std::vector<std::string>& list, const std::string& part) {
        return std::any_of(list.begin(), list.end(), [&](const std::string& sentence) {
            return sentence.find(part) != std::string::npos;
        });
    }
    std::string Content;
    MemorySource Source;
    std::unique_ptr<FieldReader> Reader;
};

const std::vector<std::string> usual = {"CHANNEL_NUMBER 7",        "DELAY -0.010",
                                        "DESCALING_FACTOR 0.5",    "RECEIVER_LOCATION 12.345 0 101.5",
                                        "SAMPLE_INTERVAL 0.00025", "SHOT_SEQUENCE_NUMBER 103",
                                        "SOURCE_LOCATION -2.5",    "STACK 4"};

Seg2Builder Usual_File(bool big = false) {
    Seg2Builder builder;
    builder.Big = big;
    return builder.Add(usual, {1, -2, 3});
}

TEST(Seg2, DecodesEachFormatInBothByteOrders) {
    using Numbers = std::vector<std::pair<double, int>>;
    const struct {
        int Code;
        const char* Name;
        Numbers Stored;
        std::vector<float> Read;
    } formats[] = {
        {1, "int16", {{-32768, 0}, {32767, 0}, {-1, 0}, {258, 0}, {0, 0}}, {-32768, 32767, -1, 258, 0}},
        {2, "int32", {{-2147483648.0, 0}, {65537, 0}, {-3, 0}}, {-2147483648.0F, 65537, -3}},
        // Mantissas and exponents; the last group is not full.
        {3,
         "int20",
         {{1, 0}, {-1, 15}, {32767, 4}, {-300, 1}, {5, 2}, {-7, 3}},
         {1, -32768, 524272, -600, 20, -56}},
        {4, "float32", {{1.5, 0}, {-0.0078125, 0}, {3e30, 0}}, {1.5F, -0.0078125F, 3e30F}},
        {5, "float64", {{1.1, 0}, {-2.5e-3, 0}}, {1.1F, -2.5e-3F}},
    };
    for (const bool big : {false, true}) {
        for (const auto& format : formats) {
            SCOPED_TRACE(std::string(format.Name) + (big ? " big" : " little"));
            Seg2Builder builder;
            builder.Big = big;
            builder.Add(format.Code, format.Stored).Add(format.Code, format.Stored);
            Opened file(builder.Bytes());
            ASSERT_TRUE(file.File().Usable);
            EXPECT_TRUE(file.File().Faults.empty());
            EXPECT_EQ(file.File().ByteOrder, big ? "big" : "little");
            EXPECT_EQ(file.File().SampleFormat, format.Name);
            EXPECT_EQ(file.File().Traces, 2);
            EXPECT_EQ(file.Samples(2), format.Read);
            EXPECT_EQ(file.Word(2, words::ns), static_cast<double>(format.Read.size()));
            EXPECT_EQ(file.Word(2, words::dt), 1000);
        }
    }
}

TEST(Seg2, FillsTheWordsFromTheStringsOfTraceAndFile) {
    Seg2Builder builder;
    builder.Strings = {"ACQUISITION_DATE 05/Apr/2019", "ACQUISITION_TIME 14:03:59.7", "UNITS METERS",
                       "NOTE\nwind from the west\nSHOT_INCREMENT 1"};
    std::vector<std::string> strings = usual;
    strings.insert(strings.end(), {"LOW_CUT_FILTER 10 24", "HIGH_CUT_FILTER 1000 12", "ALIAS_FILTER 800 48",
                                   "NOTCH_FREQUENCY 50", "FIXED_GAIN 36", "RECEIVER_STATION_NUMBER 31",
                                   "SOURCE_STATION_NUMBER 12", "TRACE_TYPE DEAD"});
    builder.Add(strings, {1, -2, 3});
    Opened file(builder.Bytes());
    const std::pair<int, double> expected[] = {
        {words::fldr, 103},  {words::tracf, 7},   {words::tracl, 31},      {words::ep, 12},
        {words::trid, 2},    {words::nvs, 4},     {words::delrt, -10},     {words::dt, 250},
        {words::Year, 2019}, {words::Day, 95},    {words::Hour, 14},       {words::Minute, 3},
        {words::sec, 59},    {words::lcf, 10},    {words::lcs, 24},        {words::hcf, 1000},
        {words::hcs, 12},    {words::afilf, 800}, {words::afils, 48},      {words::nofilf, 50},
        {words::igc, 36},    {words::counit, 1},  {words::First_Breaks, 0}};
    for (const auto& [word, value] : expected)
        EXPECT_EQ(file.Word(1, word), value) << Header_Word(word).Name;
    EXPECT_EQ(file.Places(1).ReceiverX, 12.345);
    EXPECT_EQ(file.Places(1).ReceiverElevation, 101.5);
    EXPECT_EQ(file.Places(1).ShotX, -2.5);
    EXPECT_FALSE(file.Places(1).ShotElevation);
    EXPECT_EQ(file.Samples(1), (std::vector<float>{0.5F, -1, 1.5F})) << "times the descaling factor";
    EXPECT_EQ(file.File().Shot, 103);
    EXPECT_EQ(file.File().Delay, -10);
    EXPECT_EQ(file.File().Notes.front(), "wind from the west");
    EXPECT_TRUE(file.Assumed("\"05/Apr/2019\" is read as 5 April 2019."));
}

TEST(Seg2, ReadsStringBlocksHoweverTheyAreWritten) {
    std::vector<Seg2Builder> variants;
    for (const int padding : {0, 1, 2, 3}) {
        for (const std::string& end : {std::string(1, '\0'), std::string("\r\n"), std::string(";")}) {
            Seg2Builder builder = Usual_File(padding == 3);
            builder.Padding = padding;
            builder.StringEnd = end;
            builder.LastEnd = padding != 0;
            variants.push_back(builder);
        }
    }
    // No end mark at all; keywords small, by tabs and by a sign; a decimal comma.
    variants.push_back(Usual_File());
    variants.back().StringEnd.clear();
    variants.push_back(Usual_File());
    for (std::string& text : variants.back().Traces[0].Strings) {
        std::replace(text.begin(), text.end(), '.', ',');
        text.replace(text.find(' '), 1, text[0] == 'D' ? "=" : " \t");
        std::transform(text.begin(), text.end(), text.begin(),
                       [](char c) { return static_cast<char>(std::tolower(c)); });
    }
    for (std::size_t i = 0; i < variants.size(); ++i) {
        SCOPED_TRACE(i);
        Opened file(variants[i].Bytes());
        EXPECT_TRUE(file.File().Faults.empty());
        EXPECT_EQ(file.Word(1, words::tracf), 7);
        EXPECT_EQ(file.Word(1, words::delrt), -10);
        EXPECT_EQ(file.Word(1, words::nvs), 4);
        EXPECT_EQ(file.Places(1).ReceiverX, 12.345);
        EXPECT_EQ(file.Places(1).ReceiverElevation, 101.5);
        EXPECT_EQ(file.Samples(1), (std::vector<float>{0.5F, -1, 1.5F}));
    }
    // A length that covers the next strings, too, and one that leads beyond the block.
    const std::string bytes = Usual_File().Bytes();
    const std::size_t first = bytes.find("CHANNEL_NUMBER") - 2;
    const std::size_t last = bytes.find("STACK") - 2;
    for (const auto& [at, length] : {std::pair{first, 60}, {last, 60000}}) {
        ByteRow lying;
        lying.Bytes = bytes;
        Opened file(lying.Put(at, static_cast<std::uint64_t>(length), 2).Bytes);
        EXPECT_EQ(file.Word(1, words::tracf), 7) << length;
        EXPECT_EQ(file.Word(1, words::delrt), -10) << length;
        EXPECT_EQ(file.Word(1, words::nvs), 4) << length;
    }
}

TEST(Seg2, DatesAreReadInEitherOrder) {
    const struct {
        const char* Text;
        int Year;
        int Day;
        bool Sure;
    } dates[] = {
        {"05/Apr/2019", 2019, 95, true}, {"5-APRIL-19", 2019, 95, true},  {"Apr 5, 2019", 2019, 95, true},
        {"25/12/2020", 2020, 360, true}, {"12/25/2020", 2020, 360, true}, {"2020-12-25", 2020, 360, true},
        {"03/04/1998", 1998, 93, false}, {"29.02.96", 1996, 60, true},    {"07/07/2021", 2021, 188, true}};
    for (const auto& date : dates) {
        const auto read = Read_Seg2_Date(date.Text);
        ASSERT_TRUE(read) << date.Text;
        EXPECT_EQ(read->Year, date.Year) << date.Text;
        EXPECT_EQ(read->Day, date.Day) << date.Text;
        EXPECT_EQ(read->Sure, date.Sure) << date.Text;
    }
    for (const char* text : {"", "yesterday", "29/02/2019", "13/13/2013", "0/1/2000", "257/Mar/2000", "1/2"})
        EXPECT_FALSE(Read_Seg2_Date(text)) << text;
    Opened file(Seg2Builder().Add({"SAMPLE_INTERVAL 0.001", "ACQUISITION_DATE 03/04/1998"}, {1}).Bytes());
    EXPECT_TRUE(file.Assumed("read as 3 April 1998: the day is taken to stand before the month"));
}

TEST(Seg2, TellsWhatItAssumes) {
    Opened bare(Seg2Builder()
                    .Add({"SAMPLE_INTERVAL 0.0000625"}, {1})
                    .Add({"SAMPLE_INTERVAL 0.0000625", "DELAY 0.0125"}, {2})
                    .Bytes());
    EXPECT_TRUE(bare.File().Faults.empty());
    for (const char* told :
         {"No DELAY: recording is taken to begin with the shot. (trace 1)",
          "DELAY 12.5 ms is no whole number of ms: delrt is 12. (trace 2)", "No DESCALING_FACTOR",
          "No CHANNEL_NUMBER", "No RECEIVER_LOCATION", "No SOURCE_LOCATION",
          "SAMPLE_INTERVAL 62.5 microseconds is no whole number: dt is 62."})
        EXPECT_TRUE(bare.Assumed(told)) << told;
    EXPECT_EQ(bare.File().Interval, 62.5);
    EXPECT_EQ(bare.Word(2, words::tracf), 2) << "numbered as they stand";

    // The sum of the shots is divided only where the file says that it is one.
    const std::pair<const char*, float> stacks[] = {
        {"STACK 8", 8}, {"STACK 8 NOT NORMALIZED", 1}, {"STACK 8 SUM", 1}, {"STACK 8 NORMALIZED", 8}};
    for (const auto& [text, sample] : stacks)
        EXPECT_EQ(Opened(Seg2Builder().Add({"SAMPLE_INTERVAL 0.001", text}, {8}).Bytes()).Samples(1)[0],
                  sample)
            << text;
    Seg2Builder noted;
    noted.Strings = {"NOTE\nwindy\nThe stack is not divided by its count"};
    Opened sum(noted.Add({"SAMPLE_INTERVAL 0.001", "STACK 8"}, {8}).Bytes());
    EXPECT_EQ(sum.Samples(1)[0], 1);
    EXPECT_TRUE(sum.Assumed("samples are divided by STACK 8"));
    EXPECT_EQ(sum.Word(1, words::nvs), 8);

    Opened wrong(Seg2Builder()
                     .Add({"SAMPLE_INTERVAL fast", "DELAY 40", "ACQUISITION_DATE soon",
                           "ACQUISITION_TIME 99:99", "RECEIVER_LOCATION 1e30"},
                          {1})
                     .Bytes());
    EXPECT_TRUE(wrong.File().Usable) << "dt is missing, the samples are there";
    for (const char* told :
         {"SAMPLE_INTERVAL \"fast\" is no number", "dt is 0", "DELAY 40000 ms does not fit",
          "\"soon\" is no date", "\"99:99\" is no time", "\"1e30\" is no place"})
        EXPECT_TRUE(wrong.Faulty(told)) << told;
}

TEST(Seg2, KeepsWhatIsWholeOfDamagedFiles) {
    Seg2Builder three;
    for (int trace = 1; trace <= 3; ++trace)
        three.Add(usual, {1, 2, 3});
    const std::string bytes = three.Bytes();

    for (const std::size_t cut : {1U, 11U, 40U}) {
        Opened file(bytes.substr(0, bytes.size() - cut));
        EXPECT_EQ(file.File().Traces, 2) << cut;
        EXPECT_TRUE(file.Faulty("The file ends within the trace at byte")) << cut;
        EXPECT_EQ(file.Samples(2)[2], 1.5F);
    }
    // Within the strings of the last trace, and within its descriptor.
    const std::size_t last = bytes.rfind("\x22\x44");
    Opened stringless(bytes.substr(0, last + 40));
    EXPECT_EQ(stringless.File().Traces, 2);
    EXPECT_TRUE(stringless.Faulty("ends within the trace at byte " + std::to_string(last)));
    Opened headless(bytes.substr(0, last + 10));
    EXPECT_EQ(headless.File().Traces, 2);
    EXPECT_TRUE(headless.Faulty("lies outside the file and is lost. (trace 3)"));

    three.MoreTraces = 5;
    Opened more(three.Bytes());
    EXPECT_EQ(more.File().Traces, 3);
    EXPECT_TRUE(more.Faulty("tells 8 traces, its list of traces has room for 3"));
    three.MoreTraces = 0;

    // The count of the samples and the length of the block: the one that fits the room is right.
    for (const auto& [samples, lying] : {std::pair{3U, 400}, {300U, 0}, {2U, 0}, {3U, -4}}) {
        Seg2Builder builder = three;
        for (Seg2Builder::Trace& trace : builder.Traces) {
            trace.Samples = samples;
            trace.LyingBytes = lying;
        }
        Opened file(builder.Bytes());
        EXPECT_EQ(file.File().Traces, 3) << samples << " " << lying;
        EXPECT_EQ(file.File().Samples, 3) << samples << " " << lying;
        EXPECT_TRUE(file.Faulty("3 are taken.")) << samples << " " << lying;
    }

    three.Add(usual, {1, 2, 3, 4, 5});
    Opened longer(three.Bytes());
    EXPECT_EQ(longer.Samples(1), (std::vector<float>{0.5F, 1, 1.5F, 0, 0}));
    EXPECT_TRUE(longer.Assumed("filled up with zeros to 5 samples. (traces 1, 2, 3)"));

    Seg2Builder codes = Usual_File().Add(usual, {4});
    codes.Traces[0].Code = 9;
    Opened unknown(codes.Bytes());
    EXPECT_EQ(unknown.File().Traces, 1);
    EXPECT_EQ(unknown.Samples(1)[0], 2);
    EXPECT_TRUE(unknown.Faulty("Data format code 9"));

    std::vector<float> many(32768, 1);
    Opened large(Seg2Builder().Add(usual, many).Bytes());
    EXPECT_FALSE(large.File().Usable);
    EXPECT_TRUE(large.Faulty("32768 samples")) << "and how they can be shortened";
    EXPECT_TRUE(large.Faulty("SU file utility"));
    EXPECT_FALSE(Opened(Seg2Builder().Bytes()).File().Usable);
}

}  // namespace
}  // namespace tarnvik::test
