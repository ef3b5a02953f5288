#include "platform/imaging/metafile.h"

#include <uwmf.h>

#include "base/file_io.h"
#include "image/clsDIB.h"
#include "platform/imaging/metafile_files.h"
#include "support/temp_folder.h"

namespace ruvo::imaging {
namespace {

using namespace test;

Size sizeOf(const Bytes& file) {
  const LoadResult loaded = readMetafile(file);
  return {loaded.width, loaded.height};
}

TEST(Metafile, TellsItsSizeAtNinetySixPixelsAnInch) {
  EXPECT_EQ(sizeOf(WmfFile().placeable(0, 0, 1440, 720, 1440)), (Size{96, 48}));
  EXPECT_EQ(sizeOf(WmfFile().placeable(-500, 200, 500, -300, 1000)), (Size{96, 48})) << "corners in any order";
  EXPECT_EQ(sizeOf(WmfFile().window(70, 30).plain()), (Size{70, 30})) << "a plain file's window counts pixels";
  EXPECT_EQ(sizeOf(WmfFile().window(-70, 30).plain()), (Size{70, 30}));
  EXPECT_EQ(sizeOf(WmfFile().window(14400, 7200).plain()), (Size{960, 480})) << "or twips when it is too large";
  EXPECT_GT(sizeOf(WmfFile().plain()).width, 0);
  EXPECT_EQ(sizeOf(EmfFile(240, 48).bytes()), (Size{240, 48}));
  EmfFile bare(31, 17);
  bare.frameLess = true;
  EXPECT_EQ(sizeOf(bare.bytes()), (Size{31, 17})) << "without a frame the bounds count";
}

TEST(Metafile, SizesBeyondTheLimitsAreRefusedButTold) {
  const LoadResult wide = readMetafile(WmfFile().placeable(0, 0, 32000, 10, 90));
  EXPECT_EQ(wide.error, LoadError::TooLarge);
  EXPECT_EQ(wide.width, 34133);
  const LoadResult large = readMetafile(EmfFile(6000, 6000).bytes());
  EXPECT_EQ(large.error, LoadError::TooLarge);
  EXPECT_EQ(large.width, 6000);
  EXPECT_EQ(large.height, 6000);
  EXPECT_FALSE(large);
  EXPECT_EQ(readMetafile(WmfFile().placeable(0, 0, 100, 100, 0)).error, LoadError::Broken);
  EXPECT_EQ(readMetafile(WmfFile().placeable(5, 5, 5, 100, 96)).error, LoadError::Broken);
}

TEST(Metafile, FilesThatStopInsideARecordAreRefused) {
  const Bytes emf = EmfFile(24, 24).blackAreas().box(1, 1, 5, 5).bytes();
  for (std::size_t n = 0; n < emf.size(); ++n) {
    EXPECT_FALSE(readMetafile(std::span(emf).first(n))) << n;
  }
  const Bytes wmf = WmfFile().window(24, 24).blackAreas().box(1, 1, 5, 5).plain();
  const std::size_t lastBox = wmf.size() - 6 - 14;
  for (std::size_t n = lastBox + 6; n < lastBox + 14; ++n) {
    EXPECT_EQ(readMetafile(std::span(wmf).first(n)).error, LoadError::Broken) << n;
  }
  EXPECT_TRUE(readMetafile(WmfFile().window(24, 24).plain(false))) << "only the end record is missing";
  EXPECT_EQ(readMetafile(Bytes{}).error, LoadError::NotThisFormat);
}

TEST(Metafile, LoadsByContentAndIsDrawnOnWhiteAtItsOwnSize) {
  const TempFolder folder;
  const auto emf = folder / "drawing.jpg", wmf = folder / "drawing.bmp";
  replaceFile(emf, EmfFile(24, 24).brush(1, rgb(1, 2, 3)).stock(8).box(2, 2, 8, 8).bytes());
  replaceFile(wmf, WmfFile().window(24, 24).blackAreas().box(2, 2, 8, 8).placeable(0, 0, 24, 24, 96));
  for (const auto& path : {emf, wmf}) {
    const LoadResult loaded = LoadPicture(path);
    ASSERT_EQ(loaded.picture.kind, Picture::Kind::Metafile);
    for (const bool force : {true, false}) {
      clsDIB dib;
      ASSERT_TRUE(dib.CreateDIBFromPic(loaded.picture, force));
      EXPECT_EQ(dib.DIBbpp(), force ? 32 : 24);
      EXPECT_EQ(dib.size(), (Size{24, 24}));
      EXPECT_EQ(pixelAt(dib, 0, 0), Pixel32::plain(kWhite));
      EXPECT_EQ(pixelAt(dib, 3, 3).colour(), path == emf ? rgb(1, 2, 3) : kBlack);
    }
  }
}

TEST(Metafile, FillsTheRectangleItIsGivenAndNothingElse) {
  const Bytes file = EmfFile(24, 24).brush(1, kBlack).stock(8).box(-50, -50, 12, 50).bytes();
  const LoadResult loaded = readMetafile(file);
  for (const int depth : {24, 32}) {
    raster::Surface target;
    target.create(12, 6, depth);
    raster::fillRect(target, target.bounds(), kWhite);
    EXPECT_TRUE(playMetafile(loaded.picture, target, {2, 1, 10, 4}));
    // Without a pen a box is one pixel short.
    EXPECT_PICTURE(rowsOf(target),
                   {"............", "..###.......", "..###.......", "..###.......", "............", "............"});
  }
  raster::Surface target;
  target.create(4, 4, 32);
  EXPECT_FALSE(playMetafile({}, target, target.bounds()));
}

TEST(Metafile, UnknownAndDamagedRecordsAreLeftOut) {
  EmfFile file(24, 24);
  file.blackAreas().add(9999, longs({1, 2, 3})).add(70, longs({4, 0x2B464D45}));
  file.draw(3, longs({0x7FFFFFFF, 1, 1}));                 // more points than the record has
  file.draw(8, longs({2, 6, 0x40000000, 3, 1, 1, 9, 9}));  // a count that would wrap round
  file.add(43, longs({1, 1}));                             // half a box
  file.add(37, longs({77})).add(40, longs({-1})).add(34, longs({-5})).add(35, floats({NAN, 0, 0, INFINITY, 0, 0}));
  file.box(20, 20, 24, 24);
  EXPECT_EQ(inkBox(drawn(file)), (Rect{20, 20, 23, 23}));
}

TEST(Metafile, SavingWithoutEndAndDrawingWithoutEndStop) {
  EmfFile file(24, 24);
  for (int i = 0; i < 3000; ++i) file.add(33);
  file.pen(1, 0, 30000, kBlack);
  for (int i = 0; i < 2000; ++i) file.draw(87, longs({3}) + words({-30000, -30000, 30000, 30000, 30000, -30000}));
  EXPECT_EQ(colourAt(drawn(file), 12, 12), kBlack);
}

// --- Files of another writer

Bytes readBack(const std::filesystem::path& path) {
  return readWholeFile(path, 1 << 20).value_or(Bytes());
}

TEST(Metafile, PlaysWhatAnIndependentWriterMadeAsEmf) {
  const TempFolder folder;
  const std::string path = (folder / "other.emf").string();
  EMFTRACK* track = nullptr;
  EMFHANDLES* handles = nullptr;
  ASSERT_EQ(emf_start(path.c_str(), 4096, 4096, &track), 0);
  emf_htable_create(8, 8, &handles);
  const auto put = [&](char* record) { emf_append(reinterpret_cast<PU_ENHMETARECORD>(record), track, 1); };
  U_SIZEL device{960, 960}, millimetres{254, 254};
  put(U_EMRHEADER_set(U_RECTL{0, 0, 23, 23}, U_RECTL{0, 0, 635, 635}, nullptr, 0, nullptr, device, millimetres, 0));
  std::uint32_t brush = 0, pen = 0;
  put(createbrushindirect_set(&brush, handles, U_LOGBRUSH{U_BS_SOLID, U_COLORREF{255, 0, 0, 0}, 0}));
  put(selectobject_set(brush, handles));
  put(createpen_set(&pen, handles, U_LOGPEN{U_PS_SOLID, U_POINTL{1, 0}, U_COLORREF{0, 0, 255, 0}}));
  put(selectobject_set(pen, handles));
  put(U_EMRRECTANGLE_set(U_RECTL{4, 6, 20, 18}));
  put(U_EMREOF_set(0, nullptr, track));
  ASSERT_EQ(emf_finish(track, handles), 0);
  emf_free(&track);
  emf_htable_free(&handles);

  const raster::Surface picture = drawn(readBack(path));
  EXPECT_EQ(inkBox(picture), (Rect{4, 6, 20, 18}));
  EXPECT_EQ(inkAt(picture, {{4, 6}, {10, 10}}), "br");
}

TEST(Metafile, PlaysWhatAnIndependentWriterMadeAsWmf) {
  const TempFolder folder;
  const std::string path = (folder / "other.wmf").string();
  WMFTRACK* track = nullptr;
  WMFHANDLES* handles = nullptr;
  ASSERT_EQ(wmf_start(path.c_str(), 4096, 4096, &track), 0);
  wmf_htable_create(8, 8, &handles);
  const auto put = [&](char* record) { wmf_append(reinterpret_cast<U_METARECORD*>(record), track, 1); };
  const U_PAIRF size{1, 0.5};
  wmf_header_append(reinterpret_cast<U_METARECORD*>(U_WMRHEADER_set(const_cast<U_PAIRF*>(&size), 48)), track, 1);
  put(U_WMRSETWINDOWEXT_set(U_POINT16{48, 24}));
  put(U_WMRSETWINDOWORG_set(U_POINT16{0, 0}));
  std::uint32_t brush = 0, pen = 0;
  put(wcreatebrushindirect_set(&brush, handles, U_WLOGBRUSH{U_BS_SOLID, U_COLORREF{0, 128, 0, 0}, 0}));
  put(wselectobject_set(brush, handles));
  put(wcreatepenindirect_set(&pen, handles, U_PEN{U_PS_NULL, {1, 0}, U_COLORREF{0, 0, 0, 0}}));
  put(wselectobject_set(pen, handles));
  put(U_WMRELLIPSE_set(U_RECT16{12, 6, 36, 18}));
  put(U_WMREOF_set());
  ASSERT_EQ(wmf_finish(track), 0);
  wmf_free(&track);
  wmf_htable_free(&handles);

  const raster::Surface picture = drawn(readBack(path));
  EXPECT_EQ(picture.size(), (Size{96, 48}));
  EXPECT_EQ(colourAt(picture, 48, 24), rgb(0, 128, 0));
  EXPECT_EQ(colourAt(picture, 25, 13), kWhite) << "outside the curve";
}

}  // namespace
}  // namespace ruvo::imaging
