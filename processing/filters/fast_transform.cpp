#include "processing/filters/fast_transform.h"

#include <fftw3.h>

#include <mutex>
#include <new>

namespace tarnvik {

namespace {

/// Plans are made and given back by one thread at a time; running them needs no lock.
std::mutex& Planner() {
    static std::mutex one;
    return one;
}

template <class Value>
struct Aligned {
    explicit Aligned(std::size_t count) : Start(static_cast<Value*>(fftwf_malloc(count * sizeof(Value)))) {
        if (Start == nullptr) throw std::bad_alloc();
    }
    ~Aligned() { fftwf_free(Start); }
    Aligned(const Aligned&) = delete;
    Aligned& operator=(const Aligned&) = delete;
    Value* Start;
};

}  // namespace

std::size_t Fast_Length(std::size_t least) {
    for (std::size_t length = least < 2 ? 2 : least;; ++length) {
        std::size_t rest = length;
        for (const std::size_t factor : {2, 3, 5}) {
            while (rest % factor == 0)
                rest /= factor;
        }
        // Even, so that the Nyquist frequency is one of those computed.
        if (rest == 1 && length % 2 == 0) return length;
    }
}

struct FastTransform::Plans {
    explicit Plans(std::size_t length) : Row(length), Frequencies(length / 2 + 1) {
        const std::lock_guard lock(Planner());
        const int count = static_cast<int>(length);
        To = fftwf_plan_dft_r2c_1d(count, Row.Start, Frequencies.Start, FFTW_ESTIMATE);
        Back = fftwf_plan_dft_c2r_1d(count, Frequencies.Start, Row.Start, FFTW_ESTIMATE);
    }
    ~Plans() {
        const std::lock_guard lock(Planner());
        fftwf_destroy_plan(To);
        fftwf_destroy_plan(Back);
    }
    Plans(const Plans&) = delete;
    Plans& operator=(const Plans&) = delete;

    Aligned<float> Row;
    Aligned<fftwf_complex> Frequencies;
    fftwf_plan To;
    fftwf_plan Back;
};

FastTransform::FastTransform(std::size_t length) : Count(length), Own(std::make_unique<Plans>(length)) {}

FastTransform::~FastTransform() = default;

std::span<float> FastTransform::Row() {
    return {Own->Row.Start, Count};
}

std::span<std::complex<float>> FastTransform::Frequencies() {
    // Two floats in a row, as the standard lays a complex number out.
    return {reinterpret_cast<std::complex<float>*>(Own->Frequencies.Start), Count / 2 + 1};
}

void FastTransform::Forward() {
    fftwf_execute(Own->To);
}

void FastTransform::Backward() {
    fftwf_execute(Own->Back);
}

}  // namespace tarnvik
