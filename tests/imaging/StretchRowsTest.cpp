#include "imaging/IEStretchRows.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace qpt {
namespace {

// Both passes orders must give the bytes of the direct bilinear sum, for
// colour and for alpha planes, whichever rows are kept between calls.
TEST(StretchRows, BothPassOrdersGiveTheDirectBilinearSum) {
    std::mt19937 rng(3);
    const int width = 23;
    for (int channels : {3, 1}) {
        std::vector<std::vector<uint8_t>> rows(4, std::vector<uint8_t>(size_t(width * channels)));
        for (auto& row : rows)
            for (uint8_t& v : row)
                v = uint8_t(rng());
        std::vector<int64_t> xs;
        for (int i = 0; i < 37; ++i)
            xs.push_back(int64_t(i) * 40000);  // about 0.61 of a pixel a step
        const TIEStretchColumns c = IEStretchColumns(xs, width, true);
        TIEStretchRows enlarge(c, channels, true), reduce(c, channels, false);
        const int pairs[][2] = {{0, 1}, {0, 1}, {1, 2}, {2, 3}, {3, 3}, {0, 1}};
        for (auto [y0, y1] : pairs) {
            const uint32_t fy = uint32_t(rng() % 257);
            std::vector<uint8_t> a(c.Count() * size_t(channels)), b(a.size());
            enlarge.Sample(rows[size_t(y0)].data(), y0, rows[size_t(y1)].data(), y1, fy, a.data());
            reduce.Sample(rows[size_t(y0)].data(), y0, rows[size_t(y1)].data(), y1, fy, b.data());
            ASSERT_EQ(a, b) << channels << " channels, rows " << y0 << "," << y1;
            for (size_t i = 0; i < c.Count(); ++i) {
                for (int k = 0; k < channels; ++k) {
                    auto p = [&](int y, int x) {
                        return rows[size_t(y)][size_t(x * channels + k)];
                    };
                    const uint32_t fx = c.fx[i];
                    const uint32_t sum =
                        (p(y0, c.x0[i]) * (256 - fx) + p(y0, c.x1[i]) * fx) * (256 - fy) +
                        (p(y1, c.x0[i]) * (256 - fx) + p(y1, c.x1[i]) * fx) * fy;
                    ASSERT_EQ(a[i * size_t(channels) + size_t(k)], (sum + 32768) >> 16);
                }
            }
        }
    }
}

}  // namespace
}  // namespace qpt
