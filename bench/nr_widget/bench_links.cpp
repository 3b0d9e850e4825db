#include "NR_URLLauncher.h"

#include <QUrl>
#include <QUrlQuery>

#include <benchmark/benchmark.h>

// What it takes to read a typical link, beside what QUrl takes for the same parts of it. Aim: less than a
// microsecond, and less than QUrl.
namespace {

const std::string messageLink = "smsto:+1-555-0100?text=Hi%20you,%20see%20you%20at%208";
const std::string mailLink = "mailto:alice@example.org?subject=Hi%20there&cc=bob@example.org&body=See%20you";
const std::string webLink = "http://channels.example.org/add?model=@DEVICE_MODEL@&id=@MSISDN@";

void message(benchmark::State& state)
{
    for (auto _ : state) {
        std::string address;
        std::string text;
        benchmark::DoNotOptimize(NR_URLLauncher::getURLScheme(messageLink));
        NR_URLLauncher::parseSmsUrl(messageLink, address, text);
        benchmark::DoNotOptimize(NR_URLLauncher::percentDecode(text));
    }
}

void messageByQUrl(benchmark::State& state)
{
    for (auto _ : state) {
        const QUrl url(QString::fromStdString(messageLink));
        benchmark::DoNotOptimize(url.scheme());
        benchmark::DoNotOptimize(url.path());
        benchmark::DoNotOptimize(QUrlQuery(url).queryItemValue(QStringLiteral("text"), QUrl::FullyDecoded));
    }
}

void mail(benchmark::State& state)
{
    for (auto _ : state) {
        std::string to, cc, bcc, subject, body;
        benchmark::DoNotOptimize(NR_URLLauncher::getURLScheme(mailLink));
        NR_URLLauncher::parseHeader(mailLink, mailLink.find('?'), to, cc, bcc, subject, body);
        benchmark::DoNotOptimize(body);
    }
}

void mailByQUrl(benchmark::State& state)
{
    for (auto _ : state) {
        const QUrl url(QString::fromStdString(mailLink));
        const QUrlQuery query(url);
        benchmark::DoNotOptimize(url.scheme());
        for (const QString& header : {QStringLiteral("cc"), QStringLiteral("subject"), QStringLiteral("body")})
            benchmark::DoNotOptimize(query.queryItemValue(header, QUrl::FullyDecoded));
    }
}

void web(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            NR_URLLauncher::equalsIgnoreCase(NR_URLLauncher::getURLScheme(webLink), "http"));
}

void webByQUrl(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QUrl(QString::fromStdString(webLink)).scheme() == QLatin1String("http"));
}

BENCHMARK(message);
BENCHMARK(messageByQUrl);
BENCHMARK(mail);
BENCHMARK(mailByQUrl);
BENCHMARK(web);
BENCHMARK(webByQUrl);

} // namespace
