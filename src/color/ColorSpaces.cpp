#include "ColorSpaces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace tintwick {

namespace {

using Matrix = std::array<Components, 3>;

constexpr Matrix linearSrgbToXyz{{{506752.0 / 1228815, 87881.0 / 245763, 12673.0 / 70218},
                                  {87098.0 / 409605, 175762.0 / 245763, 12673.0 / 175545},
                                  {7918.0 / 409605, 87881.0 / 737289, 1001167.0 / 1053270}}};
constexpr Matrix xyzToLinearSrgb{{{12831.0 / 3959, -329.0 / 214, -1974.0 / 3959},
                                  {-851781.0 / 878810, 1648619.0 / 878810, 36519.0 / 878810},
                                  {705.0 / 12673, -2585.0 / 12673, 705.0 / 667}}};
constexpr Matrix linearDisplayP3ToXyz{{{608311.0 / 1250200, 189793.0 / 714400, 198249.0 / 1000160},
                                       {35783.0 / 156275, 247089.0 / 357200, 198249.0 / 2500400},
                                       {0, 32229.0 / 714400, 5220557.0 / 5000800}}};
constexpr Matrix linearA98ToXyz{{{573536.0 / 994567, 263643.0 / 1420810, 187206.0 / 994567},
                                 {591459.0 / 1989134, 6239551.0 / 9945670, 374412.0 / 4972835},
                                 {53769.0 / 1989134, 351524.0 / 4972835, 4929758.0 / 4972835}}};
constexpr Matrix linearRec2020ToXyz{{{63426534.0 / 99577255, 20160776.0 / 139408157, 47086771.0 / 278816314},
                                     {26158966.0 / 99577255, 472592308.0 / 697040785, 8267143.0 / 139408157},
                                     {0, 19567812.0 / 697040785, 295819943.0 / 278816314}}};
constexpr Matrix linearProPhotoToXyzD50{{{0.79776664490064230, 0.13518129740053308, 0.03134773412839220},
                                         {0.28807482881940130, 0.71183523424187300, 0.00008993693872564},
                                         {0, 0, 0.82510460251046020}}};
constexpr Matrix d50ToD65{{{0.955473421488075, -0.02309845494876471, 0.06325924320057072},
                           {-0.0283697093338637, 1.0099953980813041, 0.021041441191917323},
                           {0.012314014864481998, -0.020507649298898964, 1.330365926242124}}};
constexpr Matrix xyzToOklabCones{{{0.8190224379967030, 0.3619062600528904, -0.1288737815209879},
                                  {0.0329836539323885, 0.9292868615863434, 0.0361446663506424},
                                  {0.0481771893596242, 0.2642395317527308, 0.6335478284694309}}};
constexpr Matrix conesToOklab{{{0.2104542683093140, 0.7936177747023054, -0.0040720430116193},
                               {1.9779985324311684, -2.4285922420485799, 0.4505937096174110},
                               {0.0259040424655478, 0.7827717124575296, -0.8086757549230774}}};
constexpr Matrix oklabToCones{{{1, 0.3963377773761749, 0.2158037573099136},
                               {1, -0.1055613458156586, -0.0638541728258133},
                               {1, -0.0894841775298119, -1.2914855480194092}}};
constexpr Matrix oklabConesToXyz{{{1.2268798758459243, -0.5578149944602171, 0.2813910456659647},
                                  {-0.0405757452148008, 1.1122868032803170, -0.0717110580655164},
                                  {-0.0763729366746601, -0.4214933324022432, 1.5869240198367816}}};
constexpr Components whiteD50{0.3457 / 0.3585, 1, (1 - 0.3457 - 0.3585) / 0.3585};

Components product(const Matrix& matrix, const Components& vector)
{
    Components result{};
    for (std::size_t row = 0; row < result.size(); ++row) {
        result.at(row) =
            matrix.at(row)[0] * vector[0] + matrix.at(row)[1] * vector[1] + matrix.at(row)[2] * vector[2];
    }
    return result;
}

/// Applies a function for values from 0 up to all three components, mirrored for negative ones.
template <typename Function>
Components mirrored(const Components& components, Function function)
{
    Components result{};
    std::ranges::transform(components, result.begin(), [&](double component) {
        return std::copysign(function(std::abs(component)), component);
    });
    return result;
}

Components srgbFromLinear(const Components& rgb)
{
    return mirrored(
        rgb, [](double v) { return v > 0.0031308 ? 1.055 * std::pow(v, 1 / 2.4) - 0.055 : 12.92 * v; });
}

double degreesToRadians(double degrees)
{
    return degrees * std::numbers::pi / 180;
}

} // namespace

Components linearFromSrgb(const Components& rgb)
{
    return mirrored(rgb,
                    [](double v) { return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); });
}

Components srgbFromXyzD65(const Components& xyz)
{
    return srgbFromLinear(product(xyzToLinearSrgb, xyz));
}

Components xyzD65FromXyzD50(const Components& xyz)
{
    return product(d50ToD65, xyz);
}

Components xyzD65FromLinearSrgb(const Components& rgb)
{
    return product(linearSrgbToXyz, rgb);
}

Components xyzD65FromSrgb(const Components& rgb)
{
    return xyzD65FromLinearSrgb(linearFromSrgb(rgb));
}

Components xyzD65FromLinearDisplayP3(const Components& rgb)
{
    return product(linearDisplayP3ToXyz, rgb);
}

Components xyzD65FromDisplayP3(const Components& rgb)
{
    // Display P3 has the transfer function of sRGB.
    return xyzD65FromLinearDisplayP3(linearFromSrgb(rgb));
}

Components xyzD65FromA98Rgb(const Components& rgb)
{
    return product(linearA98ToXyz, mirrored(rgb, [](double v) { return std::pow(v, 563.0 / 256); }));
}

Components xyzD65FromProPhotoRgb(const Components& rgb)
{
    const auto linear = [](double v) { return v <= 16.0 / 512 ? v / 16 : std::pow(v, 1.8); };
    return xyzD65FromXyzD50(product(linearProPhotoToXyzD50, mirrored(rgb, linear)));
}

Components xyzD65FromRec2020(const Components& rgb)
{
    constexpr double alpha = 1.09929682680944;
    constexpr double beta = 0.018053968510807;
    const auto linear = [](double v) {
        return v < beta * 4.5 ? v / 4.5 : std::pow((v + alpha - 1) / alpha, 1 / 0.45);
    };
    return product(linearRec2020ToXyz, mirrored(rgb, linear));
}

Components xyzD65FromLab(const Components& lab)
{
    constexpr double kappa = 24389.0 / 27;
    constexpr double epsilon = 216.0 / 24389;
    const double fy = (lab[0] + 16) / 116;
    const double fx = lab[1] / 500 + fy;
    const double fz = fy - lab[2] / 200;
    const auto inverse = [](double f) {
        const double cube = f * f * f;
        return cube > epsilon ? cube : (116 * f - 16) / kappa;
    };
    const double y = lab[0] > kappa * epsilon ? fy * fy * fy : lab[0] / kappa;
    return xyzD65FromXyzD50({inverse(fx) * whiteD50[0], y * whiteD50[1], inverse(fz) * whiteD50[2]});
}

Components xyzD65FromOklab(const Components& oklab)
{
    const Components cones =
        mirrored(product(oklabToCones, oklab), [](double cone) { return cone * cone * cone; });
    return product(oklabConesToXyz, cones);
}

Components oklabFromXyzD65(const Components& xyz)
{
    const Components cones =
        mirrored(product(xyzToOklabCones, xyz), [](double cone) { return std::cbrt(cone); });
    return product(conesToOklab, cones);
}

Components labFromLch(const Components& lch)
{
    const double hue = degreesToRadians(lch[2]);
    return {lch[0], lch[1] * std::cos(hue), lch[1] * std::sin(hue)};
}

Components lchFromLab(const Components& lab)
{
    const double chroma = std::hypot(lab[1], lab[2]);
    constexpr double noChroma = 1e-6;
    if (chroma < noChroma) {
        return {lab[0], 0, 0};
    }
    const double hue = std::atan2(lab[2], lab[1]) * 180 / std::numbers::pi;
    return {lab[0], chroma, hue < 0 ? hue + 360 : hue};
}

Components srgbFromHsl(const Components& hsl)
{
    const auto [hue, saturation, lightness] = hsl;
    const double chroma = saturation * std::min(lightness, 1 - lightness);
    double turned = std::fmod(hue, 360);
    if (turned < 0) {
        turned += 360;
    }
    const auto component = [&, lightness = lightness](double offset) {
        const double k = std::fmod(offset + turned / 30, 12);
        return lightness - chroma * std::max(-1.0, std::min({k - 3, 9 - k, 1.0}));
    };
    return {component(0), component(8), component(4)};
}

Components srgbFromHwb(const Components& hwb)
{
    const auto [hue, white, black] = hwb;
    if (white + black >= 1) {
        const double gray = white / (white + black);
        return {gray, gray, gray};
    }
    Components rgb = srgbFromHsl({hue, 1, 0.5});
    for (double& component : rgb) {
        component = component * (1 - white - black) + white;
    }
    return rgb;
}

} // namespace tintwick
