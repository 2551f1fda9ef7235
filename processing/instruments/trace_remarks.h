#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tarnvik {

/// What is to be told of the traces of a file: the same sentence once, with the traces that it holds for.
class TraceRemarks {
  public:
    void Add(const std::string& sentence, std::int64_t trace);
    /// Appends the sentences to a list, each with its traces unless it holds for all `traces` of them.
    void Tell(std::vector<std::string>& list, std::int64_t traces) const;
    bool Empty() const { return Sentences.empty(); }

  private:
    struct Remark {
        std::string Sentence;
        std::vector<std::int64_t> First;  ///< the traces named
        std::int64_t Count = 0;
    };
    std::vector<Remark> Sentences;
};

}  // namespace tarnvik
