#include "processing/chain_text.h"

#include <chrono>
#include <ctime>
#include <fstream>
#include <utility>

#include "core/text/number.h"

namespace tarnvik {

namespace {

using Row = std::pair<const char*, const char*>;

std::string Replace_All(std::string text, const Row& row) {
    const std::string from = row.first;
    const std::string to = row.second;
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// "<tools>\suwind <in >out": a redirection as it is composed.
std::string Line(const std::string& tools, const std::string& tool, const std::string& from,
                 const std::string& to, const std::string& arguments) {
    return tools + "\\" + tool + " <" + from + " >" + to + " " + arguments;
}

std::string Range(int least, int most) {
    return " min=" + CStr(least) + " max=" + CStr(most);
}

std::string Without_Blanks(std::string path) {
    std::erase(path, ' ');
    return path;
}

}  // namespace

std::string Rewrite_Text(const std::string& tools, const std::string& marked, const std::string& su_file) {
    return Line(tools, "suwind", marked, su_file, "key=trid min=1 max=1");
}

std::string Extract_Text(const std::string& tools, const std::string& su_file, const std::string& between,
                         const std::string& out_file, int first, int last, int count) {
    return Line(tools, "suwind", su_file, between, "key=tracf" + Range(first, last)) + "\n" +
           Line(tools, "sushw", between, out_file, "key=tracf a=1 b=1 j=" + CStr(count));
}

std::string Resample_Text(const std::string& tools, const std::string& su_file, const std::string& out_file,
                          int samples) {
    return Line(tools, "SURESAMP", su_file, out_file, "dt=0.001 tmin=0 nt=" + CStr(samples));
}

std::string Time_Text(const std::string& tools, const std::string& input, const std::string& output,
                      const std::string& tmax) {
    return Line(tools, "SUWIND", Without_Blanks(input), Without_Blanks(output), "tmin=0 tmax=" + tmax);
}

std::string Samples_Text(const std::string& tools, const std::string& input, const std::string& output,
                         const std::string& samples, const std::string& interval) {
    return Line(tools, "SURESAMP", Without_Blanks(input), Without_Blanks(output),
                "nt=" + samples + " dt=" + interval);
}

std::string Channels_Text(const std::string& tools, const std::string& input, const std::string& output,
                          int first, int last) {
    return tools + "\\SUWIND key=tracf <" + Without_Blanks(input) + " >" + Without_Blanks(output) +
           Range(first, last);
}

std::string Stack_Text(const std::string& tools, const std::string& folder, const std::string& su_file,
                       const StackPlan& plan) {
    const auto temporary = [&folder](int number) { return folder + "tmp" + CStr(number) + ".su"; };
    const std::string number_records = "key=fldr a=1 b=0 c=1 j=" + CStr(plan.Channels);
    const bool before = plan.First > 1;
    const bool behind = plan.Last < plan.Records;
    std::string text = Line(tools, "sushw.exe", su_file, temporary(0), number_records) + "\n";
    if (before)
        text +=
            Line(tools, "suwind", temporary(0), temporary(1), "key=fldr" + Range(1, plan.First - 1)) + "\n";
    text +=
        Line(tools, "suwind", temporary(0), temporary(2), "key=fldr" + Range(plan.First, plan.Last)) + "\n";
    if (behind) {
        text += Line(tools, "suwind", temporary(0), temporary(3),
                     "key=fldr" + Range(plan.Last + 1, plan.Records)) +
                "\n";
    }
    text += tools + "\\susort <" + temporary(2) + " tracf | " + tools + "\\sustack >" + temporary(5) +
            " key=tracf\n";
    text += Line(tools, "sushw.exe", temporary(5), temporary(6), "key=fldr a=" + CStr(plan.First)) + "\n";
    text += "copy/b " + (before ? temporary(1) + "+" : std::string()) + temporary(6) +
            (behind ? "+" + temporary(3) : std::string()) + " " + temporary(7) + "\n";
    return text + Line(tools, "sushw.exe", temporary(7), su_file, number_records);
}

std::string Cleaned_Up(std::string text) {
    static constexpr Row rows[] = {{". ", "."},     {" .", "."},   {", ", ","},   {" ,", ","},
                                   {".su", ".su "}, {"= ", "="},   {" =", "="},   {"> ", ">"},
                                   {"< ", "<"},     {"  |", " |"}, {"|  ", "| "}, {"\\ ", "\\"},
                                   {" \\", "\\"},   {"   ", " "},  {"  ", " "},   {"_ ", "_"}};
    for (const Row& row : rows)
        text = Replace_All(std::move(text), row);
    return text;
}

std::string Tightened(std::string text) {
    for (const Row& row : {Row{"  ", " "}, Row{"= ", "="}, Row{" =", "="}})
        text = Replace_All(std::move(text), row);
    return text;
}

std::string Log_Of(const std::string& su_file) {
    return su_file + ".log";
}

bool Note_In_Log(const std::string& su_file, const std::string& text) {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    char time[32];
    std::strftime(time, sizeof time, "%Y-%m-%d %H:%M:%S", &local);
    std::ofstream log(Log_Of(su_file), std::ios::binary | std::ios::app);
    log << time << "\n" << text << "\n\n";
    log.close();
    return log.good();
}

}  // namespace tarnvik
