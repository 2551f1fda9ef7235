#include "processing/instruments/conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "core/files.h"
#include "core/text/number.h"
#include "records/su_check.h"
#include "records/su_file.h"
#include "support/field_file_builder.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

bool Told(const std::vector<std::string>& list, const std::string& part) {
    return std::any_of(list.begin(), list.end(),
                       [&](const std::string& sentence) { return sentence.find(part) != std::string::npos; });
}

class Conversion : public ::testing::Test {
  protected:
    /// A SEG-2 file of three channels; `shot` 0 tells no number.
    std::string Seg2(const std::string& name, int shot, const std::string& more = "DELAY 0", int samples = 4,
                     const std::string& interval = "0.0005") {
        Seg2Builder builder;
        for (int channel = 1; channel <= 3; ++channel) {
            std::vector<std::string> strings = {
                "SAMPLE_INTERVAL " + interval, more, "CHANNEL_NUMBER " + CStr(channel),
                "RECEIVER_LOCATION " + CStr(2.5 * channel), "SOURCE_LOCATION " + CStr(shot - 0.125)};
            if (shot != 0) strings.push_back("SHOT_SEQUENCE_NUMBER " + CStr(shot));
            builder.Add(strings, std::vector<float>(static_cast<std::size_t>(samples),
                                                    static_cast<float>(10 * shot + channel)));
        }
        return Put(name, builder.Bytes());
    }
    std::string Put(const std::string& name, const std::string& content) {
        EXPECT_EQ(Replace_File(Folder / name, content), "");
        return Folder / name;
    }
    ConversionReport Convert(std::vector<std::string> files) {
        Request.Files = std::move(files);
        Request.Out = Folder / "out.su";
        return Convert_Field_Files(Request);
    }
    /// A word of all traces that were written.
    std::vector<double> Words(int word) {
        SuTraces su(Folder / "out.su");
        std::vector<double> values;
        for (std::int64_t trace = 1; trace <= su.Nb_Traces().value_or(0); ++trace)
            values.push_back(su.Word_Or_Zero(trace, word));
        return values;
    }
    std::vector<float> First_Samples() {
        SuTraces su(Folder / "out.su");
        std::vector<float> first;
        std::vector<float> samples(static_cast<std::size_t>(su.Nb_Samples()));
        for (std::int64_t trace = 1; trace <= su.Nb_Traces().value_or(0); ++trace) {
            su.Samples(trace, samples);
            first.push_back(samples[0]);
        }
        return first;
    }
    using Numbers = std::vector<double>;

    TemporaryFolder Folder;
    ConversionRequest Request;
};

TEST_F(Conversion, PutsTheFilesInOrderByNameOrByShot) {
    const std::vector<std::string> files = {Seg2("shot10.dat", 2), Seg2("shot9.dat", 3), Seg2("Shot1.dat", 0),
                                            Seg2("shot008.dat", 1)};
    ConversionReport report = Convert(files);
    ASSERT_TRUE(report.Went_Well()) << report.Failure;
    EXPECT_EQ(report.Traces, 12);
    EXPECT_EQ(report.Records, 4);
    EXPECT_EQ(First_Samples(), (std::vector<float>{1, 2, 3, 11, 12, 13, 31, 32, 33, 21, 22, 23}));
    // One file tells no number, so all are counted.
    EXPECT_EQ(Words(words::fldr), (Numbers{1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4}));
    EXPECT_TRUE(Told(report.Messages, "fldr counts them from 1 to 4"));
    EXPECT_EQ(Words(words::tracr), (Numbers{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    EXPECT_TRUE(Check_Su_File(Folder / "out.su").Good());

    Request.Order = FileOrder::Shot;
    report = Convert(files);
    EXPECT_EQ(First_Samples(), (std::vector<float>{11, 12, 13, 21, 22, 23, 31, 32, 33, 1, 2, 3}));
    // Numbers that tell the records apart stay.
    report = Convert({files[0], files[1]});
    EXPECT_EQ(Words(words::fldr), (Numbers{2, 2, 2, 3, 3, 3}));
    EXPECT_EQ(Words(words::ep), (Numbers{2, 2, 2, 3, 3, 3}));
    EXPECT_TRUE(report.Messages.empty());
}

TEST_F(Conversion, LeavesOutWhatDoesNotFitAndGoesOn) {
    const std::string cut = Seg2("e.dat", 5);
    Put("e.dat", Content_Of(cut).substr(0, Content_Of(cut).size() - 3));
    const ConversionReport report =
        Convert({Seg2("a.dat", 1), Seg2("b.dat", 2, "DELAY -0.01", 6), Folder / "none.dat",
                 Put("text.dat", "some letters"), Seg2("d.dat", 4, "DELAY 0", 4, "0.001"), cut, Folder.Path});
    ASSERT_TRUE(report.Went_Well()) << report.Failure;
    ASSERT_EQ(report.Files.size(), 7U);
    const auto of = [&](const std::string& name) {
        return *std::find_if(report.Files.begin(), report.Files.end(),
                             [&](const FieldFile& file) { return Name_Of(file.File) == name; });
    };
    EXPECT_TRUE(Told(of("none.dat").Faults, "does not exist"));
    EXPECT_TRUE(Told(of("text.dat").Faults, "text file"));
    EXPECT_TRUE(Told(of("d.dat").Faults, "1000 microseconds, is not that of the files before (500)"));
    EXPECT_EQ(of("d.dat").Written, 0);
    EXPECT_EQ(of("e.dat").Written, 2);
    EXPECT_EQ(report.Traces, 8);
    // The longest record gives the length of all.
    EXPECT_EQ(Words(words::ns), Numbers(8, 6.0));
    EXPECT_TRUE(Told(report.Messages, "4 to 6 samples"));
    EXPECT_TRUE(Told(report.Messages, "-10 to 0 ms"));
    EXPECT_EQ(Words(words::delrt), (Numbers{0, 0, 0, -10, -10, -10, 0, 0}));
    SuTraces su(Folder / "out.su");
    std::vector<float> samples(6);
    su.Samples(1, samples);
    EXPECT_EQ(samples, (std::vector<float>{11, 11, 11, 11, 0, 0}));
}

TEST_F(Conversion, PlacesComeFromHeadersTypingOrTable) {
    const std::vector<std::string> files = {Seg2("a.dat", 1), Seg2("b.dat", 2)};
    ASSERT_TRUE(Convert(files).Went_Well());
    // Eighths need thousandths, for all traces alike.
    EXPECT_EQ(Words(words::scalco), Numbers(6, -1000.0));
    EXPECT_EQ(Words(words::sx), (Numbers{875, 875, 875, 1875, 1875, 1875}));
    EXPECT_EQ(Words(words::gx), (Numbers{2500, 5000, 7500, 2500, 5000, 7500}));
    EXPECT_EQ(Words(words::offset), (Numbers{2, 4, 7, 1, 3, 6}));

    Request.Spacing = 1.5;
    Request.FirstReceiver = -3;
    Request.Shots = {-4, 100};
    ASSERT_TRUE(Convert(files).Went_Well());
    EXPECT_EQ(Words(words::sx)[5], 100000);
    EXPECT_EQ(Words(words::gx), (Numbers{-3000, -1500, 0, -3000, -1500, 0}));
    EXPECT_EQ(Words(words::offset)[4], -102);

    Request.GeometryTable = Put("places.csv",
                                "File;Record;Channel;Shot X;ReceiverX;Receiver elevation\r\n"
                                "A.DAT;;;7,25;;\r\n;2;3;;50.5;99.75\r\nb;;1;;-1e3;\r\nnobody.dat;;1;1;;\r\n");
    const ConversionReport report = Convert(files);
    ASSERT_TRUE(report.Went_Well()) << report.Failure;
    EXPECT_EQ(Words(words::sx), (Numbers{7250, 7250, 7250, 100000, 100000, 100000}));
    EXPECT_EQ(Words(words::gx), (Numbers{-3000, -1500, 0, -1000000, -1500, 50500}));
    EXPECT_EQ(Words(words::gelev)[5] / -Words(words::scalel)[5], 99.75);
    EXPECT_TRUE(Told(report.Messages, "line 5: no trace of these files belongs to it"));

    const std::pair<const char*, const char*> wrong[] = {
        {"File;ShotX\na.dat;1o\n", "line 2: \"1o\" is no shotx"},
        {"Trace;ShotX\n1;1\n", "line 1: no column is headed File or Record"},
        {"File;Sh\na.dat;1\n", "line 1: no column is headed ShotX"},
        {"Record,Channel,ReceiverX\n,1,5\n", "line 2: neither file nor record"},
        {"Record;Channel;ShotX\n9;1;5\n", "no row belongs to a trace"},
        {"", "no row"}};
    for (const auto& [table, told] : wrong) {
        Put("places.csv", table);
        EXPECT_NE(Convert(files).Failure.find(told), std::string::npos) << told;
    }
    Request.GeometryTable.clear();
    Request.Shots = {1, 2, 3};
    EXPECT_EQ(Convert(files).Failure, "3 shot places for 2 records: give one a record.");
    Request.Spacing.reset();
    EXPECT_NE(Convert(files).Failure.find("needs the spacing"), std::string::npos);
}

TEST_F(Conversion, LargePlacesKeepWhatFitsTheirWord) {
    Seg2Builder builder;
    builder.Add({"SAMPLE_INTERVAL 0.001", "RECEIVER_LOCATION 431234.567 5345678.912 1234.5",
                 "SOURCE_LOCATION 431230.1 5345670.25"},
                {1});
    const ConversionReport report = Convert({Put("utm.dat", builder.Bytes())});
    EXPECT_EQ(Words(words::scalco), Numbers{-100});
    EXPECT_EQ(Words(words::gy), Numbers{534567891});
    EXPECT_EQ(Words(words::gx), Numbers{43123457});
    EXPECT_TRUE(Told(report.Files[0].Faults, "too large to be held to a thousandth"));
}

TEST_F(Conversion, SuFilesOfEitherOrderStayAsTheyAre) {
    SuBuilder builder(6, 5, 250);
    builder.Records(3);
    for (int trace = 1; trace <= 6; ++trace) {
        builder.Put16(trace, 222, 100 * trace).Put32(trace, 72, -1000 * trace).Put16(trace, 70, -100);
        builder.Put_Float(trace, 180, 0.5F).Sample(trace, 2, static_cast<float>(trace) / 3);
    }
    const std::string little = builder.Write(Folder / "little.su");
    // Turning an SU file round twice gives it back; its own reader of big-endian files is the judge of the
    // other.
    std::string turned = builder.Bytes;
    for (std::size_t trace = 0; trace < 6; ++trace) {
        const std::size_t start = trace * 260;
        for (int word = 1; word <= header_words; ++word) {
            const HeaderWord& row = Header_Word(word);
            const auto at = turned.begin() + static_cast<std::ptrdiff_t>(start) + row.Offset;
            std::reverse(at, at + (row.Type == WordType::Int16 ? 2 : 4));
        }
        for (std::size_t at = start + 240; at < start + 260; at += 4)
            std::reverse(turned.begin() + static_cast<std::ptrdiff_t>(at),
                         turned.begin() + static_cast<std::ptrdiff_t>(at) + 4);
    }
    const std::string big = Put("big.su", turned);
    for (const std::string& file : {little, big}) {
        const ConversionReport report = Convert({file});
        ASSERT_TRUE(report.Went_Well()) << report.Failure;
        EXPECT_EQ(report.Files[0].ByteOrder, file == big ? "big" : "little");
        EXPECT_EQ(report.Records, 2);
        EXPECT_EQ(Content_Of(Folder / "out.su"), builder.Bytes) << file;
    }
    // A place that is typed leaves the other words under the scale word as they are.
    Request.Shots = {0.125, 5};
    ASSERT_TRUE(Convert({big}).Went_Well());
    EXPECT_EQ(Words(words::sx), (Numbers{125, 125, 125, 5000, 5000, 5000}));
    Request.Shots.clear();
    Request.Spacing = 2;
    ASSERT_TRUE(Convert({big}).Went_Well());
    EXPECT_EQ(Words(words::sx)[2], -3000) << "-30 in hundredths, as it was";
    EXPECT_EQ(Words(words::gx)[2], 400);
    EXPECT_EQ(Words(words::First_Breaks)[5], 600);

    // Both at once: equal numbers are told apart.
    Request.Spacing.reset();
    const ConversionReport both = Convert({big, little});
    EXPECT_EQ(Words(words::fldr), (Numbers{1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4}));
    EXPECT_TRUE(Told(both.Messages, "do not tell the records apart"));
    EXPECT_TRUE(Told(Convert({Put("cut.su", turned.substr(0, 1500))}).Files[0].Assumed, "5 whole traces"));
    SuBuilder longer(2, 5, 250);
    longer.Bytes = std::string(2 * (240 + 4 * 40000), '\0');
    for (const std::size_t trace : {0U, 1U}) {
        longer.Bytes[trace * 160240 + 114] = '\x40';
        longer.Bytes[trace * 160240 + 115] = '\x9C';
        longer.Bytes[trace * 160240] = static_cast<char>(trace + 1);
    }
    EXPECT_TRUE(
        Told(Convert({longer.Write(Folder / "long.su")}).Files[0].Faults,
             "40000 samples, more than 32767: the file is left out. Shorten it with the SU file utility"));
}

TEST_F(Conversion, NothingOfTheUsersIsTouchedWhereItFails) {
    const std::string file = Seg2("a.dat", 1);
    const std::string before = Content_Of(file);
    Put("out.su", "precious");
    EXPECT_EQ(Convert({Folder / "none.dat"}).Failure, "None of the files can be converted.");
    EXPECT_EQ(Convert({}).Failure, "No file is given.");
    Request.Files = {file};
    Request.Out = Folder / "../" + Name_Of(Folder.Path) + "/a.dat";
    EXPECT_NE(Convert_Field_Files(Request).Failure.find("is one of the files that are read"),
              std::string::npos);
    EXPECT_EQ(Content_Of(file), before);
    Request.Out = Folder / "no/folder.su";
    EXPECT_FALSE(Convert_Field_Files(Request).Went_Well());
    Request.Out = Folder / "out.su";
    // More traces than are written between two looks at the progress.
    Seg2Builder many;
    for (int channel = 1; channel <= 200; ++channel)
        many.Add({"SAMPLE_INTERVAL 0.001"}, {1});
    Request.Files = {Put("many.dat", many.Bytes())};
    const ConversionReport stopped =
        Convert_Field_Files(Request, [](std::int64_t done, std::int64_t all) { return done < all / 2; });
    EXPECT_EQ(stopped.Failure, "Stopped");
    EXPECT_EQ(stopped.Traces + stopped.Files[0].Written, 0);
    EXPECT_EQ(Content_Of(Folder / "out.su"), "precious");
    EXPECT_FALSE(File_Exists(Folder / "out.su.new"));
}

TEST_F(Conversion, ALookShowsTheFirstTraces) {
    const std::string file = Seg2("a.dat", 7, "STACK 3");
    const FieldFile seen = Look_At_Field_File(file, 2);
    ASSERT_EQ(seen.Preview.size(), 2U);
    EXPECT_EQ(seen.Traces, 3);
    EXPECT_EQ(seen.Preview[1].Record, 7);
    EXPECT_EQ(seen.Preview[1].Channel, 2);
    EXPECT_EQ(seen.Preview[1].Stack, 3);
    EXPECT_EQ(seen.Preview[1].Places.ReceiverX, 5);
    EXPECT_EQ(seen.Preview[1].Places.ShotX, 6.875);
    EXPECT_EQ(seen.Preview[1].Samples, std::vector<float>(4, 72));
    EXPECT_EQ(Field_Format_Of(file), "SEG-2");
    EXPECT_EQ(Field_Format_Of(Folder.Path), "");
    // Samples that are no numbers do not reach the SU file.
    Seg2Builder builder;
    builder.Add({"SAMPLE_INTERVAL 0.001"}, {1, std::numeric_limits<float>::quiet_NaN(), 2});
    const ConversionReport report = Convert({Put("nan.dat", builder.Bytes())});
    EXPECT_TRUE(Told(report.Files[0].Faults, "1 sample without a finite value"));
    SuTraces su(Folder / "out.su");
    std::vector<float> samples(3);
    su.Samples(1, samples);
    EXPECT_EQ(samples, (std::vector<float>{1, 0, 2}));
}

}  // namespace
}  // namespace tarnvik::test
