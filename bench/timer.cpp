// The floor of the idle monitor: a bare 1 ms timer that does nothing, for as many seconds as told.
#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int segundos = argc > 1 ? std::atoi(argv[1]) : 10; // NOLINT(cert-err34-c)
    int tics = 0;
    QTimer pulso;
    pulso.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pulso, &QTimer::timeout, [&] { ++tics; });
    pulso.start(1);
    QTimer::singleShot(segundos * 1000, &app, &QCoreApplication::quit);
    QCoreApplication::exec();
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    const double cpu = static_cast<double>(uso.ru_utime.tv_sec + uso.ru_stime.tv_sec) +
                       static_cast<double>(uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1e6;
    std::printf("bare 1 ms timer: %.2f %% of one core, %.0f ticks a second\n", 100 * cpu / segundos,
                static_cast<double>(tics) / segundos);
    return EXIT_SUCCESS;
}
