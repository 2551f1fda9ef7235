#include "processing/instruments/trace_remarks.h"

#include <algorithm>

namespace tarnvik {

namespace {

constexpr std::size_t traces_named = 5;
// A damaged file may have something else wrong with each trace; a list that nobody reads helps nobody.
constexpr std::size_t sentences_kept = 30;

}  // namespace

void TraceRemarks::Add(const std::string& sentence, std::int64_t trace) {
    auto remark = std::find_if(Sentences.begin(), Sentences.end(),
                               [&](const Remark& one) { return one.Sentence == sentence; });
    if (remark == Sentences.end()) {
        if (Sentences.size() >= sentences_kept) return;
        remark = Sentences.insert(remark, Remark{sentence, {}, 0});
    }
    ++remark->Count;
    if (remark->First.size() < traces_named) remark->First.push_back(trace);
}

void TraceRemarks::Tell(std::vector<std::string>& list, std::int64_t traces) const {
    for (const Remark& remark : Sentences) {
        std::string text = remark.Sentence;
        if (remark.Count < traces || traces == 1) {
            text += remark.Count == 1 ? " (trace " : " (traces ";
            for (std::size_t i = 0; i < remark.First.size(); ++i)
                text += (i == 0 ? "" : ", ") + std::to_string(remark.First[i]);
            text += remark.Count > static_cast<std::int64_t>(remark.First.size()) ? " ...)" : ")";
        }
        list.push_back(std::move(text));
    }
}

}  // namespace tarnvik
