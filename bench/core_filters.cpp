// The pixel filters and turning beside ImageMagick's nearest operation on the same pixels, in one run, each side with one
// thread; and the point operations beside a plain copy of their pixels.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/rotation_size.h"
#include "magick_wand.h"
#include "photograph.h"

namespace ruvo {
namespace {

constexpr int kWidth = 6000, kHeight = 4000;  // 24 megapixels
constexpr int kBlock = 10;
constexpr double kAngle = 17;

const clsDIB& picture() {
  static const clsDIB dib = bench::photograph(kWidth, kHeight);
  return dib;
}

// Turned whole it is still within the limits of a picture.
const clsDIB& smallPicture() {
  static const clsDIB dib = bench::photograph(kWidth / 2, kHeight / 2);
  return dib;
}

// Each round starts from a fresh copy, whose making is not measured.
template <typename Operation>
void ours(benchmark::State& state, const Operation& operation, const clsDIB& (&source)() = picture) {
  for (auto _ : state) {
    state.PauseTiming();
    clsDIB copy;
    clsDIB::CloneDIB(source(), copy, kWhite, false);
    clsDIBFilter filter;
    state.ResumeTiming();
    operation(filter, copy);
    benchmark::DoNotOptimize(copy.DIBBitsPtr());
  }
}

template <typename Operation>
void magick(benchmark::State& state, const Operation& operation, const clsDIB& (&source)() = picture) {
  for (auto _ : state) {
    state.PauseTiming();
    MagickWand* wand = bench::wandOf(source());
    state.ResumeTiming();
    if (operation(wand) == MagickFalse) state.SkipWithError("ImageMagick refused");
    state.PauseTiming();
    DestroyMagickWand(wand);
    state.ResumeTiming();
  }
}

MagickBooleanType convolve(MagickWand* wand, const double (&kernel)[9]) {
  return MagickConvolveImage(wand, 3, kernel);
}

// A colour for the length of a call.
template <typename Use>
MagickBooleanType withColour(const char* name, const char* amount, const Use& use) {
  PixelWand *colour = NewPixelWand(), *part = NewPixelWand();
  PixelSetColor(colour, name);
  PixelSetColor(part, amount);
  const MagickBooleanType done = use(colour, part);
  DestroyPixelWand(colour);
  DestroyPixelWand(part);
  return done;
}

#define OURS(name, expression) \
  BENCHMARK_CAPTURE(ours, name, [](clsDIBFilter& filter, clsDIB& dib) { expression; })->Unit(benchmark::kMillisecond)
#define MAGICK(name, expression) \
  BENCHMARK_CAPTURE(magick, name, [](MagickWand* wand) { return expression; })->Unit(benchmark::kMillisecond)

OURS(brighten, filter.BrightenDarken(dib, 0.2f));
MAGICK(brighten, MagickEvaluateImage(wand, MultiplyEvaluateOperator, 1.2));
OURS(contrast, filter.Contrast(dib, 1.3f, 10));
MAGICK(contrast, MagickBrightnessContrastImage(wand, 10, 20));
OURS(negative, filter.Negative(dib));
MAGICK(negative, MagickNegateImage(wand, MagickFalse));
OURS(greyscale, filter.Grayscale(dib));
MAGICK(greyscale, MagickTransformImageColorspace(wand, GRAYColorspace));
OURS(fade, filter.Fade(dib, 30));
MAGICK(fade, withColour("white", "rgb(30%,30%,30%)",
                        [wand](PixelWand* white, PixelWand* part) { return MagickColorizeImage(wand, white, part); }));
OURS(colourise, filter.Colorize(dib, rgb(255, 204, 128)));
MAGICK(colourise, withColour("rgb(255,204,128)", "rgb(100%,100%,100%)", [wand](PixelWand* colour, PixelWand* part) {
         return MagickTintImage(wand, colour, part);
       }));

OURS(soften, filter.Soften(dib));
MAGICK(soften, convolve(wand, {0, 0.2, 0, 0.2, 0.2, 0.2, 0, 0.2, 0}));
OURS(sharpen, filter.Sharpen(dib, 1));
MAGICK(sharpen, convolve(wand, {0, 0, 0, -1, 2, 0, 0, 0, 0}));
OURS(emboss, filter.Emboss(dib, 1, 128, 128, 128));
MAGICK(emboss, MagickEmbossImage(wand, 1, 0.5));
OURS(cast, filter.Cast(dib, 128, 128, 128));
MAGICK(cast, convolve(wand, {0, 0, -1, 0, 1, 0, 0, 0, 0}));

OURS(pixelate, filter.Pixelate(dib, kBlock));
// A pixel of each square, without means: the quicker of its ways.
MAGICK(pixelate, static_cast<MagickBooleanType>(MagickSampleImage(wand, kWidth / kBlock, kHeight / kBlock) &&
                                                MagickSampleImage(wand, kWidth, kHeight)));

// Turning with the square that holds the whole, whose making counts, against the smaller box of the others.
void turnOurs(benchmark::State& state) {
  ours(
      state,
      [](clsDIBFilter& filter, clsDIB& dib) {
        clsDIB target;
        const int side = rotatedSide(dib.size());
        target.CreateBlankDIB(side, side, 32, kWhite);
        filter.RotateDIB_To_DIB(dib, target, kAngle, true);
      },
      smallPicture);
}
BENCHMARK(turnOurs)->Unit(benchmark::kMillisecond);

void turnMagick(benchmark::State& state) {
  magick(
      state,
      [](MagickWand* wand) {
        return withColour("white", "white",
                          [wand](PixelWand* white, PixelWand*) { return MagickRotateImage(wand, white, kAngle); });
      },
      smallPicture);
}
BENCHMARK(turnMagick)->Unit(benchmark::kMillisecond);

// Its other way, with the same mapping as ours.
void turnByPointsMagick(benchmark::State& state) {
  magick(
      state,
      [](MagickWand* wand) {
        return withColour("white", "white", [wand](PixelWand* white, PixelWand*) {
          const double angle = kAngle;
          MagickSetImageBackgroundColor(wand, white);
          MagickSetImageVirtualPixelMethod(wand, BackgroundVirtualPixelMethod);
          MagickSetImageInterpolateMethod(wand, BilinearInterpolatePixel);
          MagickSetOption(wand, "filter", "point");
          return MagickDistortImage(wand, ScaleRotateTranslateDistortion, 1, &angle, MagickTrue);
        });
      },
      smallPicture);
}
BENCHMARK(turnByPointsMagick)->Unit(benchmark::kMillisecond);

// The other filters, with no peer.
OURS(antialias, filter.doAntiAliasing(dib, 100));
OURS(shadow, filter.AddShadow(dib, 10, 10, 20, kBlack));
OURS(theme, filter.ColorTheme_HLS(dib, {30, -1, 90}));
OURS(grain, RandomSource random; filter.Grainize(dib, 0.5f, random));

void copyOfThePixels(benchmark::State& state) {
  const auto bytes = static_cast<std::size_t>(picture().DIBSize());
  std::vector<std::uint8_t> buffer(bytes);
  for (auto _ : state) {
    std::memcpy(buffer.data(), picture().DIBBitsPtr(), bytes);
    benchmark::DoNotOptimize(buffer.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(copyOfThePixels)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ruvo
