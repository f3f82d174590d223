// What the archive benchmarks share: the Boost.Serialization baseline's store and load of a whole
// document, and the rates every run reports.
#pragma once

#include <benchmark/benchmark.h>
#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>

// Stores `items` through Boost's binary archive and answers the bytes.
template <typename T> std::string StoreBoost(const T& items) {
    std::ostringstream out;
    {
        boost::archive::binary_oarchive ar(out);
        ar << items;
    }
    return std::move(out).str();
}

// Loads into a new `Document` whose `member` receives what StoreBoost wrote.
template <typename Document, typename Member>
std::unique_ptr<Document> LoadBoost(const std::string& bytes, Member Document::*member) {
    auto doc = std::make_unique<Document>();
    std::istringstream in(bytes);
    boost::archive::binary_iarchive ar(in);
    ar >> (*doc).*member;
    return doc;
}

// Objects per second and MB per second of a run over range(0) objects and `bytes` bytes.
inline void ReportRates(benchmark::State& state, std::size_t bytes) {
    const auto count = static_cast<double>(state.range(0));
    state.counters["objects/s"] =
        benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate);
    state.counters["MB/s"] = benchmark::Counter(static_cast<double>(bytes) / 1e6,
                                                benchmark::Counter::kIsIterationInvariantRate);
    state.counters["MB"] = static_cast<double>(bytes) / 1e6;
    state.SetComplexityN(state.range(0));
}
