#include "GaussianBlur.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tintwick {

namespace {

/// Normalised weights for the distances -reach to +reach from the pixel, of a Gaussian whose centre is at `middle`.
std::vector<float> gaussian(int reach, double sigma, double middle)
{
    std::vector<float> weights;
    float sum = 0;
    for (int distance = -reach; distance <= reach; ++distance) {
        const double x = (distance - middle) / sigma;
        weights.push_back(static_cast<float>(std::exp(-0.5 * x * x)));
        sum += weights.back();
    }
    for (float& weight : weights) {
        weight /= sum;
    }
    return weights;
}

/// Adds `source` × `weight` to `target`, both of `count` values.
void accumulate(float* target, const float* source, float weight, int count)
{
    for (int i = 0; i < count; ++i) {
        target[i] += source[i] * weight;
    }
}

} // namespace

int GaussianBlur::reach() const
{
    return static_cast<int>(std::ceil(3 * standardDeviation));
}

QImage blurred(const QImage& alpha, const GaussianBlur& blur)
{
    Q_ASSERT(alpha.format() == QImage::Format_Alpha8);
    if (blur.standardDeviation <= 0) {
        return alpha;
    }
    const int width = alpha.width();
    const int height = alpha.height();
    const double sigma = blur.standardDeviation;
    const int reach = blur.reach();
    const std::vector<float> across = gaussian(reach, sigma, 0);
    const int downReach = reach + static_cast<int>(std::ceil(std::abs(blur.offsetY)));
    const std::vector<float> down = gaussian(downReach, sigma, -blur.offsetY);

    // Both passes add up whole rows, because such loops vectorise.
    std::vector<float> rows(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0.0F);
    const auto row = [&](int y) { return rows.data() + static_cast<std::ptrdiff_t>(y) * width; };
    std::vector<float> padded(static_cast<std::size_t>(width + 2 * reach), 0.0F);
    for (int y = 0; y < height; ++y) {
        const uchar* line = alpha.constScanLine(y);
        if (std::all_of(line, line + width, [](uchar value) { return value == 0; })) {
            continue;
        }
        std::copy(line, line + width, padded.begin() + reach);
        for (int tap = 0; tap <= 2 * reach; ++tap) {
            accumulate(row(y), padded.data() + tap, across[static_cast<std::size_t>(tap)], width);
        }
    }

    QImage result(alpha.size(), QImage::Format_Alpha8);
    std::vector<float> sum(static_cast<std::size_t>(width));
    const auto opacity = static_cast<float>(blur.opacity);
    for (int y = 0; y < height; ++y) {
        std::ranges::fill(sum, 0.0F);
        const int first = std::max(0, y - downReach);
        const int last = std::min(height - 1, y + downReach);
        for (int from = first; from <= last; ++from) {
            accumulate(sum.data(), row(from), down[static_cast<std::size_t>(from - y + downReach)], width);
        }
        uchar* out = result.scanLine(y);
        for (int x = 0; x < width; ++x) {
            out[x] = static_cast<uchar>(sum[static_cast<std::size_t>(x)] * opacity + 0.5F);
        }
    }
    return result;
}

} // namespace tintwick
