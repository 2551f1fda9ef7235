#include "processing/instruments/conversion.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>
#include <system_error>

#include "core/fault.h"
#include "core/files.h"
#include "core/text/number.h"
#include "processing/instruments/field_reader.h"
#include "processing/instruments/geometry_list.h"
#include "processing/instruments/trace_places.h"
#include "processing/traces/trace_writer.h"

namespace tarnvik {

namespace {

namespace fs = std::filesystem;

constexpr double farthest_place = 2e9;  // what a 32-bit word holds without decimals

std::string Count_Text(std::int64_t count, const char* noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// An open file and its reader.
struct OpenFile {
    explicit OpenFile(const std::string& path) : Source(path), Reader(Open_Field_File(Source, path)) {}
    FileSource Source;
    std::unique_ptr<FieldReader> Reader;
};

/// Opens a file that is one; else tells why not.
std::unique_ptr<OpenFile> Open_It(const std::string& path, FieldFile& told) {
    told.File = path;
    std::error_code failed;
    if (!File_Exists(path)) {
        told.Faults.emplace_back("This file does not exist.");
    } else if (!fs::is_regular_file(path, failed)) {
        told.Faults.emplace_back("This is no regular file.");
    } else {
        try {
            auto file = std::make_unique<OpenFile>(path);
            told = file->Reader->File();
            return file;
        } catch (const Fault& fault) {
            told.Faults.emplace_back(std::string(fault.what()) + ".");
        }
    }
    return nullptr;
}

/// Traces of a file that belong together.
struct Record {
    std::int64_t Number = 0;  ///< `fldr`, or `ep` where that is 0
    std::int64_t First = 1;   ///< trace of the file
    std::int64_t Traces = 0;
    std::int64_t LowestChannel = 0;
    std::int64_t HighestChannel = 0;
};

struct FileTaken {
    FieldFile File;
    std::vector<Record> Records;
    PlaceSteps Steps;
};

/// Ends a conversion that cannot go on.
struct Ended {
    std::string Why;
};

class Conversion {
  public:
    Conversion(const ConversionRequest& request, const ConversionProgress& progress)
        : Request(request), Progress(progress) {}

    ConversionReport Run() {
        try {
            Check_Request();
            Look_At_Files();
            while (!Write_All())
                ;  // a file failed while it was read: the others go on without it
        } catch (const Ended& ended) {
            Report.Failure = ended.Why;
            Report.Traces = 0;
            for (FileTaken& taken : Files)
                taken.File.Written = 0;
        }
        for (FileTaken& taken : Files)
            Report.Files.push_back(std::move(taken.File));
        return std::move(Report);
    }

  private:
    static constexpr std::int64_t whole_work = 1000;  // of the progress
    static constexpr std::int64_t looking = 100;      // its share

    void Check_Request() {
        if (Request.Files.empty()) throw Ended{"No file is given."};
        if (Request.Out.empty()) throw Ended{"No file to write to is given."};
        std::error_code failed;
        for (const std::string& file : Request.Files) {
            if (fs::equivalent(file, Request.Out, failed) && !failed)
                throw Ended{Request.Out + " is one of the files that are read."};
        }
        if (Request.FirstReceiver && !Request.Spacing)
            throw Ended{"The place of the first receiver needs the spacing of the receivers."};
        std::vector<double> places = Request.Shots;
        places.push_back(Request.Spacing.value_or(0));
        places.push_back(Request.FirstReceiver.value_or(0));
        for (const double place : places) {
            if (!(std::abs(place) < farthest_place)) throw Ended{CStr(place) + " is no place on a line."};
        }
        if (Request.GeometryTable.empty()) return;
        const auto text = Read_File(Request.GeometryTable);
        if (!text) throw Ended{Request.GeometryTable + " cannot be read."};
        Table = Read_Geometry_List(*text);
        if (!Table.Fault.empty()) throw Ended{Request.GeometryTable + ", " + Table.Fault};
    }

    void Tell(std::int64_t done) const {
        if (Progress && !Progress(done, whole_work)) throw Ended{"Stopped"};
    }

    void Look_At_Files() {
        std::vector<FileTaken> taken;
        std::vector<FieldFile> files;
        for (const std::string& path : Request.Files) {
            Tell(looking * static_cast<std::int64_t>(taken.size()) /
                 static_cast<std::int64_t>(Request.Files.size()));
            FileTaken& one = taken.emplace_back();
            if (const auto file = Open_It(path, one.File); file && one.File.Usable) Scan(*file->Reader, one);
            files.push_back(one.File);
        }
        for (const std::size_t place : Conversion_Order(files, Request.Order))
            Files.push_back(std::move(taken[place]));
    }

    /// Records of a file, and how finely its places are told.
    static void Scan(FieldReader& reader, FileTaken& taken) {
        try {
            for (std::int64_t trace = 1; trace <= taken.File.Traces; ++trace) {
                const FieldHeader header = reader.Header(trace);
                const double field_record = header.Words.Word(words::fldr);
                const auto number = static_cast<std::int64_t>(
                    field_record != 0 ? field_record : header.Words.Word(words::ep));
                const auto channel = static_cast<std::int64_t>(header.Words.Word(words::tracf));
                if (taken.Records.empty() || taken.Records.back().Number != number)
                    taken.Records.push_back({number, trace, 0, channel, channel});
                Record& record = taken.Records.back();
                ++record.Traces;
                record.LowestChannel = std::min(record.LowestChannel, channel);
                record.HighestChannel = std::max(record.HighestChannel, channel);
                Refine(taken.Steps, header.Places);
            }
            for (const std::string& fault : reader.Late_Faults())
                taken.File.Faults.push_back(fault);
        } catch (const Fault& fault) {
            Leave_Out(taken, fault.what());
        }
    }
    static void Leave_Out(FileTaken& taken, const std::string& why) {
        taken.File.Usable = false;
        taken.File.Written = 0;
        taken.File.Faults.push_back(why + ".");
    }

    /// One attempt with the files that are usable; false where one of them turned out not to be.
    bool Write_All() {
        Report.Messages.clear();
        Report.Traces = 0;
        Find_Common_Values();
        Find_Steps();
        Used.assign(Table.Rows.size(), false);
        FileTaken* failed = nullptr;
        bool stopped = false;
        const std::string reason = Replace_File_In_Pieces(Request.Out, [&](const PieceWriter& write) {
            try {
                Write_Traces(write, failed);
            } catch (const Ended& ended) {
                stopped = true;
                return ended.Why;
            } catch (const Fault& fault) {
                return std::string(fault.what());
            }
            if (!Some_Row_Is_Used())
                return Request.GeometryTable + ": no row belongs to a trace of these files.";
            return std::string();
        });
        if (stopped) throw Ended{reason};
        if (failed != nullptr) {
            Leave_Out(*failed, reason);
            return false;
        }
        if (!reason.empty()) throw Ended{Request.Out + " is not written: " + reason};
        Tell_What_Was_Done();
        return true;
    }

    void Find_Common_Values() {
        Interval = 0;
        Samples = 0;
        Traces = 0;
        Records = 0;
        for (const FileTaken& taken : Files) {
            if (taken.File.Usable && Interval == 0) Interval = Rounded(taken.File.Interval);
        }
        std::int64_t usable = 0;
        std::set<std::int64_t> numbers;
        bool told_apart = true;
        bool instrument = false;
        for (FileTaken& taken : Files) {
            if (!taken.File.Usable) continue;
            if (Rounded(taken.File.Interval) != Interval) {
                Leave_Out(taken, "The sample interval, " + CStr(taken.File.Interval) +
                                     " microseconds, is not that of the files before (" + CStr(Interval) +
                                     "): the file is left out");
                continue;
            }
            ++usable;
            Samples = std::max(Samples, taken.File.Samples);
            Traces += taken.File.Traces;
            Records += static_cast<std::int64_t>(taken.Records.size());
            for (const Record& record : taken.Records) {
                const bool its_own = record.Number != 0 && numbers.insert(record.Number).second;
                told_apart = told_apart && its_own;
                instrument = instrument || (taken.File.Format == "SEG-2" && record.Number == 0);
            }
        }
        if (usable == 0) throw Ended{"None of the files can be converted."};
        if (!Request.Shots.empty() && static_cast<std::int64_t>(Request.Shots.size()) != Records) {
            throw Ended{Count_Text(static_cast<std::int64_t>(Request.Shots.size()), "shot place") + " for " +
                        Count_Text(Records, "record") + ": give one a record."};
        }
        OneFile = usable == 1;
        // The numbers of a single file are the user's own; those of several must tell the records apart.
        NewNumbers = instrument || (!OneFile && !told_apart);
    }

    void Find_Steps() {
        Steps = {};
        for (const FileTaken& taken : Files) {
            if (!taken.File.Usable) continue;
            Steps.Coordinates = std::max(Steps.Coordinates, taken.Steps.Coordinates);
            Steps.Elevations = std::max(Steps.Elevations, taken.Steps.Elevations);
        }
        TracePlaces typed;
        typed.ShotX = Request.Spacing;  // its multiples need no finer steps
        typed.ReceiverX = Request.FirstReceiver;
        Refine(Steps, typed);
        for (const double place : Request.Shots) {
            typed.ShotX = place;
            Refine(Steps, typed);
        }
        for (const GeometryRow& row : Table.Rows)
            Refine(Steps, row.Places);
    }

    void Write_Traces(const PieceWriter& write, FileTaken*& failed) {
        PieceSink sink(write);
        TraceWriter writer(sink);
        std::int64_t record_before = 0;
        RunningTrace = 0;
        for (FileTaken& taken : Files) {
            taken.File.Written = 0;
            if (!taken.File.Usable) continue;
            FieldFile again;
            const auto file = Open_It(taken.File.File, again);
            if (!file || again.Traces != taken.File.Traces || again.Samples != taken.File.Samples) {
                failed = &taken;
                throw Fault("The file changed while it was read");
            }
            Write_File(*file->Reader, taken, record_before, writer, failed);
            record_before += static_cast<std::int64_t>(taken.Records.size());
        }
        writer.Finish();
        Report.Traces = writer.Traces_Written();
        Report.Records = Records;
    }

    void Write_File(FieldReader& reader, FileTaken& taken, std::int64_t record_before, TraceWriter& writer,
                    FileTaken*& failed) {
        std::vector<float> samples;
        std::int64_t no_numbers = 0;
        bool places_fit = true;
        for (std::size_t k = 0; k < taken.Records.size(); ++k) {
            const Record& record = taken.Records[k];
            const std::int64_t number = record_before + static_cast<std::int64_t>(k) + 1;
            const std::vector<std::size_t> rows = Table.Rows_Of(taken.File.File, number);
            for (std::int64_t i = 0; i < record.Traces; ++i) {
                FieldHeader header;
                try {
                    header = reader.Header(record.First + i);
                    reader.Samples(record.First + i, samples);
                } catch (const Fault&) {
                    failed = &taken;
                    throw;
                }
                no_numbers += Clear_What_Is_No_Number(samples);
                samples.resize(static_cast<std::size_t>(Samples));
                places_fit = Fill_Header(header, taken, record, number, i, rows) && places_fit;
                writer.Put(header.Words.Bytes.data(), samples);
                ++taken.File.Written;
                if (writer.Traces_Written() % 64 == 0)
                    Tell(looking + (whole_work - looking) * writer.Traces_Written() / Traces);
            }
        }
        if (no_numbers > 0)
            Tell_Once(taken, Count_Text(no_numbers, "sample") + " without a finite value became 0.");
        if (!places_fit) Tell_Once(taken, "Places are too large to be held to a thousandth and are rounded.");
    }
    static void Tell_Once(FileTaken& taken, const std::string& fault) {
        std::vector<std::string>& faults = taken.File.Faults;
        if (std::find(faults.begin(), faults.end(), fault) == faults.end()) faults.push_back(fault);
    }
    static std::int64_t Clear_What_Is_No_Number(std::vector<float>& samples) {
        std::int64_t count = 0;
        for (float& sample : samples) {
            if (std::isfinite(sample)) continue;
            sample = 0;
            ++count;
        }
        return count;
    }

    /// False where a place does not fit its word as finely as it was told. `index` counts the record's traces
    /// from 0.
    bool Fill_Header(FieldHeader& header, const FileTaken& taken, const Record& record, std::int64_t number,
                     std::int64_t index, const std::vector<std::size_t>& rows) {
        TraceHeader& to = header.Words;
        to.Set_Word(words::ns, Samples);
        if (!OneFile || taken.File.Format == "SEG-2")
            to.Set_Word(words::tracr, static_cast<double>(++RunningTrace));
        if (NewNumbers) {
            to.Set_Word(words::fldr, static_cast<double>(number));
            if (to.Word(words::ep) == 0) to.Set_Word(words::ep, static_cast<double>(number));
        }
        const auto channel = static_cast<std::int64_t>(to.Word(words::tracf));
        TracePlaces places = header.Places;
        if (!Request.Shots.empty()) places.ShotX = Request.Shots[static_cast<std::size_t>(number - 1)];
        if (Request.Spacing) {
            // Channels that run through count from the lowest; others as the traces stand.
            const bool by_channel = record.HighestChannel - record.LowestChannel + 1 == record.Traces;
            const auto place = static_cast<double>(by_channel ? channel - record.LowestChannel : index);
            places.ReceiverX = Request.FirstReceiver.value_or(0) + place * *Request.Spacing;
        }
        if (!rows.empty()) Lay_Over(places, Table.Places_Of(rows, channel, Used));
        return Put_Places(to, places, Steps);
    }

    bool Some_Row_Is_Used() const {
        return Used.empty() || std::find(Used.begin(), Used.end(), true) != Used.end();
    }

    void Tell_What_Was_Done() {
        if (NewNumbers) {
            Report.Messages.push_back(
                "The files do not tell the records apart by number: fldr counts them from 1 to " +
                std::to_string(Records) + ".");
        }
        std::set<double> delays;
        std::set<std::int64_t> counts;
        std::set<std::int64_t> channels;
        for (const FileTaken& taken : Files) {
            if (!taken.File.Usable) continue;
            delays.insert(taken.File.Delay);
            counts.insert(taken.File.Samples);
            for (const Record& record : taken.Records)
                channels.insert(record.Traces);
        }
        if (counts.size() > 1) {
            Report.Messages.push_back("The files have " + std::to_string(*counts.begin()) + " to " +
                                      std::to_string(*counts.rbegin()) +
                                      " samples a trace: shorter ones are filled up with zeros.");
        }
        if (delays.size() > 1) {
            Report.Messages.push_back("The files begin at different times after the shot, " +
                                      CStr(*delays.begin()) + " to " + CStr(*delays.rbegin()) +
                                      " ms: delrt tells it for each trace.");
        }
        if (channels.size() > 1) {
            Report.Messages.push_back("The records have " + std::to_string(*channels.begin()) + " to " +
                                      std::to_string(*channels.rbegin()) + " traces.");
        }
        for (std::size_t i = 0; i < Used.size(); ++i) {
            if (!Used[i]) {
                Report.Messages.push_back(Request.GeometryTable + ", line " + CStr(Table.Rows[i].Line) +
                                          ": no trace of these files belongs to it.");
            }
        }
    }

    const ConversionRequest& Request;
    const ConversionProgress& Progress;
    ConversionReport Report;
    std::vector<FileTaken> Files;  ///< in their order
    GeometryList Table;
    std::vector<bool> Used;  ///< rows of the table
    PlaceSteps Steps;
    double Interval = 0;
    int Samples = 0;
    std::int64_t Traces = 0;
    std::int64_t Records = 0;
    std::int64_t RunningTrace = 0;  ///< the last one numbered
    bool OneFile = false;
    bool NewNumbers = false;
};

}  // namespace

ConversionReport Convert_Field_Files(const ConversionRequest& request, const ConversionProgress& progress) {
    return Conversion(request, progress).Run();
}

FieldFile Look_At_Field_File(const std::string& path, int traces_of_preview) {
    FieldFile told;
    const auto file = Open_It(path, told);
    if (!file || !told.Usable) return told;
    try {
        for (std::int64_t trace = 1; trace <= std::min<std::int64_t>(traces_of_preview, told.Traces);
             ++trace) {
            const FieldHeader header = file->Reader->Header(trace);
            FieldTrace& shown = told.Preview.emplace_back();
            shown.Number = trace;
            shown.Record = static_cast<std::int64_t>(header.Words.Word(words::fldr));
            shown.Channel = static_cast<std::int64_t>(header.Words.Word(words::tracf));
            shown.Stack = static_cast<int>(header.Words.Word(words::nvs));
            shown.Delay = header.Words.Word(words::delrt);
            shown.Places = told.Format == "SEG-2" ? header.Places : Places_In_Words(header.Words);
            file->Reader->Samples(trace, shown.Samples);
        }
    } catch (const Fault& fault) {
        told.Faults.emplace_back(std::string(fault.what()) + ".");
        told.Usable = false;
    }
    return told;
}

std::string Field_Format_Of(const std::string& path) {
    return Look_At_Field_File(path).Format;
}

std::string Geometry_Table_Fault(const std::string& path) {
    const auto text = Read_File(path);
    return text ? Read_Geometry_List(*text).Fault : "it cannot be read";
}

}  // namespace tarnvik
