// Measures the menu beside the floor and its parts beside their yardsticks, in one run, and prints one table of it:
// bench_report RUNS FILE   FILE gets the table as JSON

#include "ProgramRun.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int restSeconds = 30; // as the row of the wakeups says

// By the name of what was measured: "floor start", "menu start", or what a benchmark is called.
using Samples = QMap<QString, QList<double>>;

struct Aim
{
    enum Kind { None, Ratio, More, Value } kind; // of the one to the other, by how much more, by itself
    double limit;
};

struct Row
{
    const char* name;
    const char* base; // what it is compared with, as in Samples
    double times;     // how often that counts
    const char* ours;
    Aim aim;
};

constexpr Row rows[] = {
    {"start to first menu, ms", "floor start", 1, "menu start", {Aim::Ratio, 1.25}},
    {"processor time of that, ms", "floor cpu", 1, "menu cpu", {Aim::None, 0}},
    {"memory, PSS, MB", "floor pss", 1, "menu pss", {Aim::More, 3}},
    {"memory, USS, MB", "floor uss", 1, "menu uss", {Aim::None, 0}},
    {"wakeups in 30 s of rest", "floor wakeups", 1, "menu wakeups", {Aim::Value, 0}},
    {"key to painted row, ms", "floor key", 1, "menu key", {Aim::Value, 16}},
    {"100 entries : 10 x 10, µs", "rebuild/10", 10, "rebuild/100", {Aim::Ratio, 1.25}},
    {"500 entries : 5 x 100, µs", "rebuild/100", 5, "rebuild/500", {Aim::Ratio, 1.25}},
    {"number : bare SQLite, µs", "bareInt", 1, "intSetting", {Aim::Ratio, 1.5}},
    {"text : bare SQLite, µs", "bareString", 1, "stringSetting", {Aim::Ratio, 1.5}},
    {"message link : QUrl, µs", "messageByQUrl", 1, "message", {Aim::Ratio, 1}},
    {"mail link : QUrl, µs", "mailByQUrl", 1, "mail", {Aim::Ratio, 1}},
    {"web link : QUrl, µs", "webByQUrl", 1, "web", {Aim::Ratio, 1}},
};

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    const qsizetype half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

// What is the most that keeps the aim.
double most(const Aim& aim, double base)
{
    return aim.kind == Aim::Ratio ? aim.limit * base : aim.kind == Aim::More ? base + aim.limit : aim.limit;
}

QString aimText(const Aim& aim)
{
    constexpr const char* texts[] = {"", "%1 x", "%1 more", "%1"};
    const QString text = QString::fromUtf8(texts[aim.kind]);
    return aim.kind == Aim::None ? text : text.arg(aim.limit);
}

QString number(double value)
{
    return QString::number(value, 'f', value < 10 ? 2 : 1);
}

QJsonObject compare(const Row& row, const Samples& samples)
{
    const double base = row.times * median(samples[QLatin1String(row.base)]);
    const double ours = median(samples[QLatin1String(row.ours)]);
    QJsonObject result = {
        {"name", QString::fromUtf8(row.name)}, {"base", base}, {"ours", ours}, {"aim", aimText(row.aim)}};
    if (base > 0)
        result["ratio"] = ours / base;
    if (row.aim.kind != Aim::None)
        result["verdict"] = ours <= most(row.aim, base) ? "kept" : "missed";
    return result;
}

QString line(const QJsonObject& row)
{
    return QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |")
        .arg(row["name"].toString(), -27)
        .arg(number(row["base"].toDouble()), 8)
        .arg(number(row["ours"].toDouble()), 8)
        .arg(row.contains("ratio") ? number(row["ratio"].toDouble()) : QString(), 5)
        .arg(row["aim"].toString(), 6)
        .arg(row["verdict"].toString(), -6);
}

// The first turn warms the caches and makes the settings store, the last one measures the rest, too.
bool measurePrograms(int runs, Samples& samples)
{
    const std::string folder = QCoreApplication::applicationDirPath().toStdString();
    const std::pair<QString, std::string> programs[] = {{"floor ", folder + "/bench_floor"},
                                                        {"menu ", folder + "/vistane-menu"}};
    for (int run = 0; run <= runs + 1; ++run) {
        for (const auto& [name, program] : programs) {
            Figures figures;
            if (!(run <= runs ? measureRun(program, figures) : measureRest(program, restSeconds, figures)))
                return false;
            for (const auto& [figure, value] : figures)
                if (run > 0)
                    samples[name + QString::fromStdString(figure)].append(value);
        }
    }
    return true;
}

// Processor time, so that it does not matter who else is at work; in microseconds.
bool runBenchmarks(const QString& name, int runs, Samples& samples)
{
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(QCoreApplication::applicationDirPath() + '/' + name,
                  {"--benchmark_format=json", "--benchmark_repetitions=" + QString::number(runs),
                   "--benchmark_min_time=0.05", "--benchmark_enable_random_interleaving=true"});
    if (!program.waitForFinished(-1) || program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0)
        return false;
    const QByteArray output = program.readAllStandardOutput();
    const QJsonArray results = QJsonDocument::fromJson(output.mid(output.indexOf('{')))["benchmarks"].toArray();
    for (const QJsonValue& result : results) {
        if (result["error_occurred"].toBool())
            return false;
        if (result["run_type"] == QLatin1String("iteration"))
            samples[result["run_name"].toString()].append(
                result["cpu_time"].toDouble() / (result["time_unit"] == QLatin1String("ns") ? 1e3 : 1));
    }
    return true;
}

bool measureAll(int runs, Samples& samples)
{
    if (!measurePrograms(runs, samples) || !runBenchmarks("bench_menu", runs, samples) ||
        !runBenchmarks("bench_links", runs, samples))
        return false;
    return std::all_of(std::begin(rows), std::end(rows), [&](const Row& row) {
        return samples.contains(QLatin1String(row.base)) && samples.contains(QLatin1String(row.ours));
    });
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const int runs = argc == 3 ? atoi(argv[1]) : 0;
    if (runs < 1) {
        std::fprintf(stderr, "usage: bench_report RUNS FILE\n");
        return 2;
    }
    Samples samples;
    if (!measureAll(runs, samples)) {
        std::fprintf(stderr, "a measurement failed\n");
        return 1;
    }
    std::printf("| median of %2d runs           |   beside |     ours | ratio |    aim |        |\n"
                "|-----------------------------|---------:|---------:|------:|-------:|--------|\n",
                runs);
    QJsonArray table;
    for (const Row& row : rows) {
        const QJsonObject compared = compare(row, samples);
        std::printf("%s\n", qPrintable(line(compared)));
        table.append(compared);
    }
    QFile file(QString::fromLocal8Bit(argv[2]));
    const QByteArray json = QJsonDocument(QJsonObject{{"runs", runs}, {"rows", table}}).toJson();
    return file.open(QFile::WriteOnly) && file.write(json) == json.size() ? 0 : 1;
}
