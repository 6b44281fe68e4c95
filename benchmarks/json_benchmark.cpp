// SPDX-License-Identifier: MIT
// Parses and writes agent settings of three sizes, next to two peers: one that is ordered, one that is fast.
// The peers give up what we keep (see `numbers` in the text), and both recurse.
//   --peak=NAME   parses and writes the largest text once and prints the process's peak memory in kB
//   --text=BYTES  prints the text

#include "agent_inputs.h"

#include "json/json_reader.h"
#include "json/json_text.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

namespace {

using chimewell::benchmarks::settingsText;

constexpr std::size_t largest = 50'000'000;

struct Chimewell {
    static constexpr const char* name = "chimewell";
    using Value = chimewell::JSONValue;
    static Value parse(std::string_view text) { return *chimewell::parseJSON(text); }
    static std::string write(const Value& value) { return chimewell::writeJSON(value); }
};

struct Nlohmann {
    static constexpr const char* name = "nlohmann_ordered";
    using Value = nlohmann::ordered_json;
    static Value parse(std::string_view text) { return Value::parse(text); }
    static std::string write(const Value& value) { return value.dump(2); }
};

struct RapidJSON {
    static constexpr const char* name = "rapidjson_text_numbers";
    using Value = rapidjson::Document;

    static Value parse(std::string_view text)
    {
        Value value;
        value.Parse<rapidjson::kParseNumbersAsStringsFlag>(text.data(), text.size());
        if (value.HasParseError()) std::abort();
        return value;
    }

    static rapidjson::StringBuffer write(const Value& value)
    {
        rapidjson::StringBuffer buffer;
        rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
        writer.SetIndent(' ', 2);
        value.Accept(writer);
        return buffer;
    }
};

void countBytes(benchmark::State& state, const std::string& text)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

template<class Peer>
void parse(benchmark::State& state)
{
    const std::string text = settingsText(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(Peer::parse(text));
    countBytes(state, text);
}

template<class Peer>
void write(benchmark::State& state)
{
    const std::string text = settingsText(static_cast<std::size_t>(state.range(0)));
    const typename Peer::Value value = Peer::parse(text);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(Peer::write(value));
    countBytes(state, text);
}

template<class Peer>
int printPeak()
{
    const std::string text = settingsText(largest);
    const typename Peer::Value value = Peer::parse(text);
    benchmark::DoNotOptimize(Peer::write(value));
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:")) std::cout << std::atol(line.c_str() + 6) << '\n';
    return 0;
}

/// In a process of its own, for memory once used is not given back.
template<class Peer>
void peak(benchmark::State& state)
{
    double kilobytes = 0;
    for ([[maybe_unused]] auto _ : state) {
        // In the shell, `self` would be the shell.
        std::unique_ptr<std::FILE, int (*)(std::FILE*)> const output(
            popen(("/proc/$PPID/exe --peak=" + std::string(Peer::name)).c_str(), "r"), pclose);
        std::array<char, 32> line{};
        if (output && std::fgets(line.data(), line.size(), output.get())) kilobytes = std::atof(line.data());
    }
    state.counters["peak_MB"] = kilobytes / 1024;
}

/// What a program pays that wants a few fields of a large text and no tree.
struct Ignoring {
    void beginObject() {}
    void endObject() {}
    void beginArray() {}
    void endArray() {}
    void key(std::string_view, bool) {}
    void string(std::string_view, bool) {}
    void number(std::string_view, bool) {}
    void boolean(bool) {}
    void null() {}
};

void scan(benchmark::State& state, const std::string& text)
{
    constexpr std::size_t windowSize = 65536;
    for ([[maybe_unused]] auto _ : state) {
        Ignoring handler;
        chimewell::JSONReader reader(handler);
        std::string_view rest = text;
        while (!rest.empty() && reader.fault() == chimewell::JSONFault::none)
            rest.remove_prefix(reader.feed(rest.substr(0, windowSize), rest.size() <= windowSize));
        if (!reader.finished()) state.SkipWithError("not read");
    }
    countBytes(state, text);
}

void scanSettings(benchmark::State& state)
{
    scan(state, settingsText(10'000'000));
}

/// One string with an escape every `range` bytes.
void scanString(benchmark::State& state)
{
    std::string text = "[\"";
    while (text.size() < 10'000'000)
        text += std::string(static_cast<std::size_t>(state.range(0)) - 2, 'x') + "\\n";
    scan(state, text + "\"]");
}

}

BENCHMARK(scanSettings);
BENCHMARK(scanString)->Arg(10)->Arg(40)->Arg(1000);
#define CHIMEWELL_SIZES ->Arg(10'000)->Arg(1'000'000)->Arg(largest)
BENCHMARK(parse<Chimewell>) CHIMEWELL_SIZES;
BENCHMARK(parse<RapidJSON>) CHIMEWELL_SIZES;
BENCHMARK(parse<Nlohmann>) CHIMEWELL_SIZES;
BENCHMARK(write<Chimewell>) CHIMEWELL_SIZES;
BENCHMARK(write<RapidJSON>) CHIMEWELL_SIZES;
BENCHMARK(write<Nlohmann>) CHIMEWELL_SIZES;
BENCHMARK(peak<Chimewell>)->Iterations(1);
BENCHMARK(peak<RapidJSON>)->Iterations(1);
BENCHMARK(peak<Nlohmann>)->Iterations(1);

int main(int argc, char** argv)
{
    const std::string_view argument = argc > 1 ? argv[1] : "";
    if (argument == std::string("--peak=") + Chimewell::name) return printPeak<Chimewell>();
    if (argument == std::string("--peak=") + RapidJSON::name) return printPeak<RapidJSON>();
    if (argument == std::string("--peak=") + Nlohmann::name) return printPeak<Nlohmann>();
    if (argument.starts_with("--text=")) {
        std::cout << settingsText(std::strtoul(argv[1] + 7, nullptr, 10));
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
