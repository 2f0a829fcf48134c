#include "PictureColors.h"

#include "ColorSpaces.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace tintwick {

namespace {

/// Greater pictures are reduced, without mixing pixels.
constexpr int sampledSide = 256;
constexpr int rounds = 12;
/// Nearer colours look alike, as a distance in Oklab.
constexpr double alike = 0.04;

/// One colour of the picture and the count of its pixels.
struct Sample
{
    QRgb rgb = 0;
    Components oklab{};
    double weight = 0;
};

struct Cluster
{
    Components center{};
    double weight = 0;
};

double squaredDistance(const Components& a, const Components& b)
{
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += (a.at(i) - b.at(i)) * (a.at(i) - b.at(i));
    }
    return sum;
}

std::vector<Sample> samplesOf(const QImage& picture)
{
    const bool isLarge = picture.width() > sampledSide || picture.height() > sampledSide;
    const QImage reduced = (isLarge ? picture.scaled(sampledSide, sampledSide, Qt::KeepAspectRatio) : picture)
                               .convertToFormat(QImage::Format_ARGB32);
    QHash<QRgb, double> counts;
    for (int y = 0; y < reduced.height(); ++y) {
        for (int x = 0; x < reduced.width(); ++x) {
            const QRgb pixel = reduced.pixel(x, y);
            if (qAlpha(pixel) > 127) {
                ++counts[pixel | 0xFF000000];
            }
        }
    }
    std::vector<Sample> samples;
    for (const auto& [rgb, count] : counts.asKeyValueRange()) {
        const Components srgb{qRed(rgb) / 255.0, qGreen(rgb) / 255.0, qBlue(rgb) / 255.0};
        samples.push_back({rgb, oklabFromXyzD65(xyzD65FromSrgb(srgb)), count});
    }
    // The order of a hash table changes from run to run.
    std::ranges::sort(samples, {}, &Sample::rgb);
    return samples;
}

std::size_t nearest(const std::vector<Cluster>& clusters, const Components& oklab)
{
    std::size_t best = 0;
    for (std::size_t i = 1; i < clusters.size(); ++i) {
        if (squaredDistance(clusters[i].center, oklab) < squaredDistance(clusters[best].center, oklab)) {
            best = i;
        }
    }
    return best;
}

/// Starts with the most frequent colour and adds the one that is both frequent and far from those before.
std::vector<Cluster> firstClusters(const std::vector<Sample>& samples)
{
    std::vector<Cluster> clusters{{std::ranges::max_element(samples, {}, &Sample::weight)->oklab}};
    while (clusters.size() < pictureColorCount) {
        const auto worth = [&](const Sample& sample) {
            const Components& center = clusters[nearest(clusters, sample.oklab)].center;
            return std::sqrt(sample.weight) * squaredDistance(center, sample.oklab);
        };
        const auto best = std::ranges::max_element(samples, {}, worth);
        if (worth(*best) == 0) {
            break;
        }
        clusters.push_back({best->oklab});
    }
    return clusters;
}

void moveToMeans(std::vector<Cluster>& clusters, const std::vector<Sample>& samples)
{
    std::vector<Cluster> sums(clusters.size());
    for (const Sample& sample : samples) {
        Cluster& sum = sums[nearest(clusters, sample.oklab)];
        sum.weight += sample.weight;
        for (std::size_t i = 0; i < sum.center.size(); ++i) {
            sum.center.at(i) += sample.oklab.at(i) * sample.weight;
        }
    }
    for (std::size_t i = 0; i < clusters.size(); ++i) {
        if (sums[i].weight > 0) {
            for (double& component : sums[i].center) {
                component /= sums[i].weight;
            }
            clusters[i] = sums[i];
        }
    }
}

} // namespace

QList<CapturedColor> colorsOfPicture(const QImage& picture)
{
    const std::vector<Sample> samples = samplesOf(picture);
    if (samples.empty()) {
        return {};
    }
    std::vector<Cluster> clusters = firstClusters(samples);
    for (int round = 0; round < rounds; ++round) {
        moveToMeans(clusters, samples);
    }
    std::ranges::stable_sort(clusters, std::greater{}, &Cluster::weight);

    std::vector<Components> chosen;
    QList<CapturedColor> colors;
    for (const Cluster& cluster : clusters) {
        const auto isAlike = [&](const Components& other) {
            return squaredDistance(cluster.center, other) < alike * alike;
        };
        if (std::ranges::none_of(chosen, isAlike)) {
            chosen.push_back(cluster.center);
            const auto distance = [&](const Sample& sample) {
                return squaredDistance(cluster.center, sample.oklab);
            };
            colors.append(CapturedColor::capture(std::ranges::min_element(samples, {}, distance)->rgb));
        }
    }
    return colors;
}

} // namespace tintwick
