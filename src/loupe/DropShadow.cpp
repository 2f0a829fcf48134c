#include "DropShadow.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tintwick {

namespace {

/// Normalised weights for the distances -reach to +reach from the pixel; the Gaussian's middle lies at
/// `middle`.
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

QImage shadowOf(const QImage& shape, const DropShadow& shadow)
{
    Q_ASSERT(shape.format() == QImage::Format_Alpha8);
    const int width = shape.width();
    const int height = shape.height();
    const double sigma = shadow.blur / 2;
    // Beyond three standard deviations the shadow is fainter than one step of a byte.
    const int reach = static_cast<int>(std::ceil(3 * sigma));
    const std::vector<float> across = gaussian(reach, sigma, 0);
    const int downReach = reach + static_cast<int>(std::ceil(std::abs(shadow.offsetY)));
    const std::vector<float> down = gaussian(downReach, sigma, -shadow.offsetY);

    // Whole rows are added up at a time, in both directions, because such loops vectorise.
    std::vector<float> rows(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0.0F);
    const auto row = [&](int y) { return rows.data() + static_cast<std::ptrdiff_t>(y) * width; };
    std::vector<float> padded(static_cast<std::size_t>(width + 2 * reach), 0.0F);
    for (int y = 0; y < height; ++y) {
        const uchar* alpha = shape.constScanLine(y);
        if (std::all_of(alpha, alpha + width, [](uchar value) { return value == 0; })) {
            continue;
        }
        std::copy(alpha, alpha + width, padded.begin() + reach);
        for (int tap = 0; tap <= 2 * reach; ++tap) {
            accumulate(row(y), padded.data() + tap, across[static_cast<std::size_t>(tap)], width);
        }
    }

    QImage result(shape.size(), QImage::Format_Alpha8);
    std::vector<float> sum(static_cast<std::size_t>(width));
    const auto opacity = static_cast<float>(shadow.opacity);
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
