// Timing of short pieces of work: many runs, median and worst in microseconds.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace zv::bench {

struct Medida {
    double medianaUs = 0;
    double peorUs = 0;
};

inline Medida Resumir(std::vector<double> tiempos) {
    std::sort(tiempos.begin(), tiempos.end());
    return {tiempos[tiempos.size() / 2], tiempos.back()};
}

// antes: runs before each time, not measured.
template <typename F, typename A = void (*)()>
Medida Medir(
    int veces, F&& hacer, A&& antes = [] {}) {
    using Clock = std::chrono::steady_clock;
    std::vector<double> tiempos;
    tiempos.reserve(static_cast<std::size_t>(veces));
    for (int i = 0; i < veces; ++i) {
        antes();
        const auto inicio = Clock::now();
        hacer();
        tiempos.push_back(std::chrono::duration<double, std::micro>(Clock::now() - inicio).count());
    }
    return Resumir(std::move(tiempos));
}

} // namespace zv::bench
