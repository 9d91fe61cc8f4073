#include "VXPerfResult.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

VXPerfDistribution VXPerfDistribution::of(std::vector<double> values)
{
    if (values.empty())
        return {};
    std::sort(values.begin(), values.end());
    const auto rank = [&](double percent) {
        const size_t index = size_t(std::ceil(percent / 100.0 * double(values.size())));
        return values[std::clamp<size_t>(index, 1, values.size()) - 1];
    };
    return {rank(50), rank(90), rank(99), values.back()};
}

QJsonObject VXPerfDistribution::toJson() const
{
    return {{QStringLiteral("p50"), p50}, {QStringLiteral("p90"), p90}, {QStringLiteral("p99"), p99}, {QStringLiteral("max"), max}};
}

VXPerfResult VXPerfResult::fromFrames(const QString &test, const std::vector<double> &timestamps, const std::vector<double> &work,
                                      double refreshInterval)
{
    VXPerfResult result;
    result.test = test;
    result.frames = qint64(timestamps.size());
    result.refreshRate = refreshInterval > 0 ? 1.0 / refreshInterval : 0;
    std::vector<double> intervals;
    for (size_t i = 1; i < timestamps.size(); ++i) {
        const double interval = timestamps[i] - timestamps[i - 1];
        intervals.push_back(interval * 1000.0);
        if (interval > 1.5 * refreshInterval)
            ++result.framesOverBudget;
    }
    if (timestamps.size() > 1 && timestamps.back() > timestamps.front())
        result.fps = double(timestamps.size() - 1) / (timestamps.back() - timestamps.front());
    result.frameTimeMs = VXPerfDistribution::of(std::move(intervals));
    std::vector<double> workMs;
    workMs.reserve(work.size());
    for (double seconds : work)
        workMs.push_back(seconds * 1000.0);
    result.workMs = VXPerfDistribution::of(std::move(workMs));
    return result;
}

QJsonObject VXPerfResult::toJson() const
{
    QJsonObject json{{QStringLiteral("test"), test},
                     {QStringLiteral("frames"), frames},
                     {QStringLiteral("fps"), fps},
                     {QStringLiteral("refreshRate"), refreshRate},
                     {QStringLiteral("frameTimeMs"), frameTimeMs.toJson()},
                     {QStringLiteral("framesOverBudget"), framesOverBudget},
                     {QStringLiteral("peakRssBytes"), peakRssBytes},
                     {QStringLiteral("workMs"), workMs.toJson()},
                     {QStringLiteral("peakWidgets"), peakWidgets}};
    if (!note.isEmpty())
        json.insert(QStringLiteral("note"), note);
    return json;
}

QString VXPerfResult::toText() const
{
    const auto ms = [](double value) { return QString::number(value, 'f', 2); };
    QString text = QStringLiteral("%1: %2 frames at %3 fps (display %4 Hz)\n").arg(test).arg(frames).arg(fps, 0, 'f', 1).arg(refreshRate, 0, 'f', 1);
    text += QStringLiteral("frame time  p50 %1 ms, p90 %2 ms, p99 %3 ms, max %4 ms; %5 over budget\n")
                .arg(ms(frameTimeMs.p50), ms(frameTimeMs.p90), ms(frameTimeMs.p99), ms(frameTimeMs.max))
                .arg(framesOverBudget);
    text += QStringLiteral("work        p50 %1 ms, p90 %2 ms, p99 %3 ms, max %4 ms\n").arg(ms(workMs.p50), ms(workMs.p90), ms(workMs.p99), ms(workMs.max));
    text += QStringLiteral("peak memory %1 MiB resident, %2 widgets at most\n").arg(double(peakRssBytes) / (1024.0 * 1024.0), 0, 'f', 1).arg(peakWidgets);
    if (!note.isEmpty())
        text += note + QLatin1Char('\n');
    return text;
}

QString VXPerfResult::toSummary() const
{
    const auto ms = [](const VXPerfDistribution &d) {
        return QStringLiteral("%1 / %2 / %3 ms").arg(d.p50, 0, 'f', 2).arg(d.p99, 0, 'f', 2).arg(d.max, 0, 'f', 2);
    };
    QStringList lines{QStringLiteral("%1 frames at %2 fps (%3 Hz)").arg(frames).arg(fps, 0, 'f', 1).arg(refreshRate, 0, 'f', 0),
                      QStringLiteral("frame time p50 / p99 / max:"), ms(frameTimeMs),
                      QStringLiteral("%1 frames over budget").arg(framesOverBudget),
                      QStringLiteral("work p50 / p99 / max:"), ms(workMs),
                      QStringLiteral("peak %1 MiB, %2 widgets").arg(double(peakRssBytes) / (1024.0 * 1024.0), 0, 'f', 1).arg(peakWidgets)};
    if (!note.isEmpty())
        lines << note;
    return lines.join(QLatin1Char('\n'));
}
