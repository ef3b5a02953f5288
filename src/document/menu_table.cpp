#include "document/menu_table.h"

#include <cstring>
#include <vector>

#include "effects/model/effect_table.h"

namespace ruvo {
namespace {

constexpr MenuRow bar(const char* control, const char* text, unsigned scope) {
  return {control, -1, "", text, "", kNeedNothing, scope, false};
}
constexpr MenuRow item(const char* control, int index, const char* parent, const char* text, unsigned needs,
                       unsigned scope, const char* shortcut = "") {
  return {control, index, parent, text, shortcut, needs, scope, false};
}
constexpr MenuRow check(const char* control, int index, const char* parent, const char* text) {
  return {control, index, parent, text, "", kNeedNothing, kScopeBoth, true};
}
constexpr MenuRow line(const char* control, int index, const char* parent, unsigned scope) {
  return {control, index, parent, "-", "", kNeedNothing, scope, false};
}

constexpr unsigned kEditPicture = kNeedPicture | kNotBuilt;
constexpr unsigned kReducePicture = kNeedPicture | kNeedPaintMode;
constexpr unsigned kEditRegion = kNeedPicture | kNeedRegion;
constexpr unsigned kEditPaste = kNeedPicture | kNeedClipboard;

// A row stands after the row that it hangs under. The items of effectMenu() are added to theirs.
constexpr MenuRow kRows[] = {
    // --- File
    bar("mnuFile", "&File", kScopeBoth),
    item("mnuFileSub", 0, "mnuFile", "&New ....", kNeedNothing, kScopeBoth, "Ctrl+N"),
    item("mnuFileSub", 1, "mnuFile", "&Open ....", kNeedNothing, kScopeBoth, "Ctrl+O"),
    item("mnuFileSub", 2, "mnuFile", "Open  -  In &Existing Window ....", kNeedPicture, kScopeBoth, "Ctrl+Shift+O"),
    line("mnuFileSub", 3, "mnuFile", kScopeBoth),
    item("mnuFileSub", 4, "mnuFile", "&Browse To Load Or Slide Show", kNotBuilt, kScopeBoth),
    item("mnuFileBrowseSub", 0, "mnuFileSub(4)", "At &Current View Or Paint Mode", kNotBuilt, kScopeBoth),
    item("mnuFileBrowseSub", 1, "mnuFileSub(4)", "At &Fit-In View Mode", kNotBuilt, kScopeBoth),
    item("mnuFileBrowseSub", 2, "mnuFileSub(4)", "At &Paint Mode", kNotBuilt, kScopeBoth),
    line("mnuFileSub", 5, "mnuFile", kScopeBoth),
    item("mnuFileSub", 6, "mnuFile", "&Save ....", kNeedPicture, kScopeBoth, "Ctrl+S"),
    item("mnuFileSub", 7, "mnuFile", "Save As B&MP", kNeedPicture, kScopeBoth),
    item("mnuFileSaveBMPSub", 0, "mnuFileSub(7)", "&Per Actual Color Depth Of Image ....", kNeedPicture, kScopeBoth),
    line("mnuFileSaveBMPSub", 1, "mnuFileSub(7)", kScopeBoth),
    item("mnuFileSaveBMPSub", 2, "mnuFileSub(7)", "&Convert To 8-BPP Color Depth ....", kNeedPicture, kScopeBoth),
    item("mnuFileSub", 8, "mnuFile", "Save As &GIF", kNeedPicture, kScopeBoth),
    item("mnuFileSaveGIFSub", 0, "mnuFileSub(8)", "&Normal  (Non-Transparent && Not Interlaced) ....", kNeedPicture,
         kScopeBoth),
    item("mnuFileSaveGIFSub", 1, "mnuFileSub(8)", "&Transparent (per Top Pixel),  Not Interlaced ....", kNeedPicture,
         kScopeBoth),
    item("mnuFileSaveGIFSub", 2, "mnuFileSub(8)", "T&ransparent (per Top Pixel)  AND  Interlaced ....", kNeedPicture,
         kScopeBoth),
    item("mnuFileSaveGIFSub", 3, "mnuFileSub(8)", "&Interlaced,  Non-Transparent ....", kNeedPicture, kScopeBoth),
    line("mnuFileSaveGIFSub", 4, "mnuFileSub(8)", kScopeBoth),
    item("mnuFileSaveGIFSub", 5, "mnuFileSub(8)", "&Select From Panel .....", kNeedPicture, kScopeBoth),
    item("mnuFileSub", 9, "mnuFile", "Save As &JPG", kNeedPicture, kScopeBoth),
    item("mnuFileSaveJPGSub", 0, "mnuFileSub(9)", "&55 % ....", kNeedPicture, kScopeBoth),
    item("mnuFileSaveJPGSub", 1, "mnuFileSub(9)", "&65 % ....", kNeedPicture, kScopeBoth),
    item("mnuFileSaveJPGSub", 2, "mnuFileSub(9)", "&75 % ....", kNeedPicture, kScopeBoth),
    item("mnuFileSaveJPGSub", 3, "mnuFileSub(9)", "&85 % ....", kNeedPicture, kScopeBoth),
    item("mnuFileSaveJPGSub", 4, "mnuFileSub(9)", "&95 % ....", kNeedPicture, kScopeBoth),
    item("mnuFileSub", 10, "mnuFile", "Sa&ve As PNG", kNeedPicture, kScopeBoth),
    item("mnuFileSavePNGSub", 0, "mnuFileSub(10)", "As &True-Color PNG   (No Optionsl Panel) ....", kNeedPicture,
         kScopeBoth),
    item("mnuFileSavePNGSub", 1, "mnuFileSub(10)", "As &Optimized PNG   (No Options Panel) ....", kNeedPicture,
         kScopeBoth),
    line("mnuFileSavePNGSub", 2, "mnuFileSub(10)", kScopeBoth),
    item("mnuFileSavePNGSub", 3, "mnuFileSub(10)", "&As True-Color 24-BPP Or 32-BPP PNG   (Options Panel) ....",
         kNeedPicture, kScopeBoth),
    item("mnuFileSavePNGSub", 4, "mnuFileSub(10)", "As &Paletted 8-BPP PNG   (Options Panel) ....", kNeedPicture,
         kScopeBoth),
    item("mnuFileSub", 11, "mnuFile", "Save As &TIF ....", kNeedPicture, kScopeBoth),
    item("mnuFileSub", 12, "mnuFile", "Save As TGA ....", kNeedPicture, kScopeBoth),
    item("mnuFileSub", 13, "mnuFile", "Save As P&CX ....", kNeedPicture, kScopeBoth),
    line("mnuFileSub", 14, "mnuFile", kScopeBoth),
    item("mnuFileSub", 15, "mnuFile", "Save As &ICO ....", kNeedPicture, kScopeBoth),
    item("mnuFileSub", 16, "mnuFile", "Save As C&UR ....", kNeedPicture, kScopeBoth),
    line("mnuFileSub", 17, "mnuFile", kScopeBoth),
    item("mnuFileSub", 18, "mnuFile", "Batch Convert &File Format", kNotBuilt, kScopeBoth),
    item("mnuFileBatchConvertSub", 0, "mnuFileSub(18)", "To &BMP ....", kNotBuilt, kScopeBoth),
    item("mnuFileBatchConvertSub", 1, "mnuFileSub(18)", "To &GIF ....", kNotBuilt, kScopeBoth),
    item("mnuFileBatchConvertSub", 2, "mnuFileSub(18)", "To &JPG ....", kNotBuilt, kScopeBoth),
    item("mnuFileBatchConvertSub", 3, "mnuFileSub(18)", "To &PNG ....", kNotBuilt, kScopeBoth),
    item("mnuFileBatchConvertSub", 4, "mnuFileSub(18)", "To &TIF ....", kNotBuilt, kScopeBoth),
    item("mnuFileSub", 19, "mnuFile", "Batch Streamline Image Size ....", kNotBuilt, kScopeBoth),
    item("mnuFileSub", 20, "mnuFile", "Find Differences Between Two Images ....", kNotBuilt, kScopeBoth),
    line("mnuFileSub", 21, "mnuFile", kScopeBoth),
    item("mnuFileSub", 22, "mnuFile", "&Print ....", kEditPicture, kScopeBoth, "Ctrl+P"),
    line("mnuFileHistory", 0, "mnuFile", kScopeBoth),
    item("mnuFileHistory", 1, "mnuFile", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistory", 2, "mnuFile", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistory", 3, "mnuFile", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistory", 4, "mnuFile", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistory", 5, "mnuFile", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistory", 6, "mnuFile", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistory", 7, "mnuFile", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistory", 8, "mnuFile", "", kNeedNothing, kScopeBoth),
    line("mnuFileSub", 23, "mnuFile", kScopeBoth),
    item("mnuFileCloseCurrent", -1, "mnuFile", "Close Curre&nt Window", kNeedPicture, kScopeBoth, "Ctrl+W"),
    item("mnuFileCloseAll", -1, "mnuFile", "Close &All Windows", kNeedPicture, kScopeBoth, "Ctrl+Shift+W"),
    item("mnuFileExit", -1, "mnuFile", "E&xit", kNeedNothing, kScopeBoth, "Ctrl+Q"),

    // --- Animated GIF
    bar("mnuAnimatedGIF", "Animated &GIF", kScopeBoth),
    item("mnuAnimatedGIFNew", 0, "mnuAnimatedGIF", "&Assemble Frames From Files ....", kNotBuilt, kScopeBoth),
    item("mnuAnimatedGIFNew", 1, "mnuAnimatedGIF", "Load &First Frame From GIF File ....", kNotBuilt, kScopeBoth),
    item("mnuAnimatedGIFNew", 2, "mnuAnimatedGIF", "Open Animated &GIF File ....", kNeedNothing, kScopeBoth, "Ctrl+G"),
    item("mnuAnimatedGIFNew", 3, "mnuAnimatedGIF", "Auto-Generate &Frame Series ....", kNotBuilt, kScopeBoth),
    item("mnuAnimatedGIFImport", 0, "mnuAnimatedGIF", "Convert Animated &Cursor (ANI) To Animated GIF ....", kNotBuilt,
         kScopeBoth),
    item("mnuAnimatedGIFImport", 1, "mnuAnimatedGIF", "Convert Animated &Windows AVI To Animated GIF ....", kNotBuilt,
         kScopeBoth),
    line("mnuFileHistoryGIFani", 0, "mnuAnimatedGIF", kScopeBoth),
    item("mnuFileHistoryGIFani", 1, "mnuAnimatedGIF", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistoryGIFani", 2, "mnuAnimatedGIF", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistoryGIFani", 3, "mnuAnimatedGIF", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistoryGIFani", 4, "mnuAnimatedGIF", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistoryGIFani", 5, "mnuAnimatedGIF", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistoryGIFani", 6, "mnuAnimatedGIF", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistoryGIFani", 7, "mnuAnimatedGIF", "", kNeedNothing, kScopeBoth),
    item("mnuFileHistoryGIFani", 8, "mnuAnimatedGIF", "", kNeedNothing, kScopeBoth),

    // --- DigiPhoto
    bar("mnuDigiPhoto", "&DigiPhoto", kScopeBoth),
    item("mnuDigiPhotoSub", 0, "mnuDigiPhoto", "&Browse", kNotBuilt, kScopeBoth),
    item("mnuDigiPhotoBrowseSub", 0, "mnuDigiPhotoSub(0)", "At &Current View Or Paint Mode", kNotBuilt, kScopeBoth),
    item("mnuDigiPhotoBrowseSub", 1, "mnuDigiPhotoSub(0)", "At &Fit-In View Mode", kNotBuilt, kScopeBoth),
    item("mnuDigiPhotoBrowseSub", 2, "mnuDigiPhotoSub(0)", "At &Paint Mode", kNotBuilt, kScopeBoth),
    item("mnuDigiPhotoSub", 1, "mnuDigiPhoto", "&Read EXIF Data ....", kNotBuilt, kScopeBoth),
    item("mnuDigiPhotoSub", 2, "mnuDigiPhoto", "&Erase (Cut) EXIF Data of Current File ....", kNotBuilt, kScopeBoth),
    item("mnuDigiPhotoSub", 3, "mnuDigiPhoto", "Bul&k Erase EXIF Data of Files in Folder ....", kNotBuilt, kScopeBoth),
    item("mnuDigiPhotoSub", 4, "mnuDigiPhoto", "&Stamp Photos With EXIF Dates (&&/Or Text) ....", kNotBuilt,
         kScopeBoth),
    item("mnuDigiPhotoSub", 5, "mnuDigiPhoto", "Synchronize &File Time To EXIF Time / Select Photos By Date  ....",
         kNotBuilt, kScopeBoth),
    item("mnuDigiPhotoSub", 6, "mnuDigiPhoto", "Streamline &Image Size ....", kNotBuilt, kScopeBoth),

    // --- Edit
    bar("mnuEdit", "&Edit", kScopeBoth),
    item("mnuEditUndo", -1, "mnuEdit", "&Undo", kNeedUndo, kScopeBoth, "Ctrl+Z"),
    item("mnuEditRedo", -1, "mnuEdit", "&Redo", kNeedRedo, kScopeBoth, "Ctrl+Y"),
    item("mnuEditUndoAll", -1, "mnuEdit", "Undo &All", kNeedUndo, kScopeBoth),
    line("mnuEditLine", 0, "mnuEdit", kScopeBoth),
    item("mnuEditCut", -1, "mnuEdit", "C&ut / Erase Region", kEditRegion, kScopeBoth, "Del"),
    item("mnuEditCutAndCopy", -1, "mnuEdit", "Cut && Cop&y", kEditRegion, kScopeBoth, "Ctrl+X"),
    item("mnuEditCopy", -1, "mnuEdit", "&Copy", kNeedPicture, kScopeBoth, "Ctrl+C"),
    item("mnuEditPaste", -1, "mnuEdit", "&Paste", kNeedClipboard, kScopeBoth, "Ctrl+V"),
    item("mnuEditPasteTransparent", -1, "mnuEdit", "Paste &Transparent (per Top Pixel)", kEditPaste, kScopeBoth),
    item("mnuEditPasteTranslucent", -1, "mnuEdit", "PasteTransl&ucent", kEditPaste, kScopeDocument),
    item("mnuEditPasteTranslucentSub", 0, "mnuEditPasteTranslucent", "&Transparent Per Top Pixel  (Rest Translucent)",
         kEditPaste, kScopeDocument),
    item("mnuEditPasteTranslucentTransparentSub", 0, "mnuEditPasteTranslucentSub(0)", "&Opaque", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentTransparentSub", 1, "mnuEditPasteTranslucentSub(0)", "&90% Transluscent", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentTransparentSub", 2, "mnuEditPasteTranslucentSub(0)", "&80%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentTransparentSub", 3, "mnuEditPasteTranslucentSub(0)", "&70%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentTransparentSub", 4, "mnuEditPasteTranslucentSub(0)", "&60%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentTransparentSub", 5, "mnuEditPasteTranslucentSub(0)", "&50%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentTransparentSub", 6, "mnuEditPasteTranslucentSub(0)", "&40%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentTransparentSub", 7, "mnuEditPasteTranslucentSub(0)", "&30%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentTransparentSub", 8, "mnuEditPasteTranslucentSub(0)", "&20%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentSub", 1, "mnuEditPasteTranslucent", "Translucent &All Areas", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentNotTransparentSub", 0, "mnuEditPasteTranslucentSub(1)", "&80% Translucent", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentNotTransparentSub", 1, "mnuEditPasteTranslucentSub(1)", "&70%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentNotTransparentSub", 2, "mnuEditPasteTranslucentSub(1)", "&60%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentNotTransparentSub", 3, "mnuEditPasteTranslucentSub(1)", "&50%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentNotTransparentSub", 4, "mnuEditPasteTranslucentSub(1)", "&40%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentNotTransparentSub", 5, "mnuEditPasteTranslucentSub(1)", "&30%", kEditPaste,
         kScopeDocument),
    item("mnuEditPasteTranslucentNotTransparentSub", 6, "mnuEditPasteTranslucentSub(1)", "&20%", kEditPaste,
         kScopeDocument),
    line("mnuEditLine", 1, "mnuEdit", kScopeDocument),
    item("mnuEditCrop", -1, "mnuEdit", "Cr&op Per Region", kEditRegion, kScopeDocument),
    item("mnuEditCropPerImageInsideRegion", -1, "mnuEdit",
         "Crop Per &Image Inside Region  (After Text /  Paste Transparent)", kEditRegion, kScopeDocument),
    item("mnuEditCleansePaint", -1, "mnuEdit", "Clean&se Paint", kNeedPicture, kScopeDocument),
    item("mnuEditCleansePaintSub", 0, "mnuEditCleansePaint", "Cleanse &Whole ", kNeedPicture, kScopeDocument),
    item("mnuEditCleansePaintSub", 1, "mnuEditCleansePaint", "Cleanse Areas &Ouitside Region", kNeedPicture,
         kScopeDocument),
    line("mnuEditLine", 2, "mnuEdit", kScopeBoth),
    item("mnuEditClearClipboard", -1, "mnuEdit", "C&lear Clipboard", kNeedNothing, kScopeBoth),

    // --- Menus that need a document
    bar("mnuRotate", "&Rotate", kScopeDocument),
    item("mnuRotateSub", 0, "mnuRotate", "Flip &Horizontal", kNeedPicture, kScopeDocument),
    item("mnuRotateSub", 1, "mnuRotate", "Flip &Vertical", kNeedPicture, kScopeDocument),
    item("mnuRotateSub", 2, "mnuRotate", "Turn &Left 90 Degree", kNeedPicture, kScopeDocument),
    item("mnuRotateSub", 3, "mnuRotate", "Turn &Right 90 Degree", kNeedPicture, kScopeDocument),
    line("mnuRotateSub", 4, "mnuRotate", kScopeDocument),
    item("mnuRotateSub", 5, "mnuRotate", "Rotate At &Any Chosen Angle ....", kNeedPicture, kScopeDocument),
    bar("mnuText", "&Text", kScopeDocument),
    item("mnuTextSub", 0, "mnuText", "&Add Text ....", kNeedPicture | kNeedPaintMode, kScopeDocument),
    bar("mnuEffects", "Effe&cts", kScopeDocument),
    bar("mnuLayer", "&Layer", kScopeDocument),
    bar("mnuResize", "Re&size", kScopeDocument),
    item("mnuResizeSub", 0, "mnuResize", "&Reset Size ....", kNeedPicture | kNeedPaintMode, kScopeDocument),
    line("mnuResizeSub", 1, "mnuResize", kScopeDocument),
    item("mnuResizeSub", 2, "mnuResize", "&Adjust Edge ....", kNeedPicture | kNeedPaintMode, kScopeDocument),
    bar("mnuBPP", "&BPP", kScopeDocument),
    item("mnuBPPSub", 0, "mnuBPP", "&Color Reduction", kReducePicture, kScopeDocument),
    item("mnuColorReductionSub", 0, "mnuBPPSub(0)", "To &256-Color", kReducePicture, kScopeDocument),
    item("mnuColorReductionSub", 1, "mnuBPPSub(0)", "To &16-Color", kReducePicture, kScopeDocument),
    item("mnuColorReductionSub", 2, "mnuBPPSub(0)", "To &B&&W", kReducePicture, kScopeDocument),
    item("mnuColorReductionBWSub", 0, "mnuColorReductionSub(2)", "&Stucki", kReducePicture, kScopeDocument),
    item("mnuColorReductionBWSub", 1, "mnuColorReductionSub(2)", "&Floyd Steinberg", kReducePicture, kScopeDocument),
    item("mnuColorReductionBWSub", 2, "mnuColorReductionSub(2)", "&Burke", kReducePicture, kScopeDocument),
    item("mnuColorReductionBWSub", 3, "mnuColorReductionSub(2)", "&Ordered", kReducePicture, kScopeDocument),
    line("mnuBPPSub", 1, "mnuBPP", kScopeDocument),
    item("mnuBPPSub", 2, "mnuBPP", "To &Websafe", kReducePicture, kScopeDocument),
    bar("mnuInquiry", "&Inquiry", kScopeDocument),
    item("mnuInquiryOriginal", -1, "mnuInquiry", "&General Properties", kNeedPicture, kScopeDocument),
    item("mnuInquiryColorCount", -1, "mnuInquiry", "&Colors Count", kNeedPicture, kScopeDocument),
    item("mnuInquiryStartPosCurrentScreen", -1, "mnuInquiry", "&Start Position && Size of Current Screen", kNeedPicture,
         kScopeDocument),
    item("mnuInquiryFullFileSpec", -1, "mnuInquiry", "&Full File Specification", kNeedPicture, kScopeDocument),

    // --- Options
    bar("mnuOptions", "&Options", kScopeBoth),
    check("mnuOptionsSub", 1, "mnuOptions", "Set To &SDI Only  (Default Is MDI- Multi-Document-Interface)"),
    line("mnuOptionsSub", 2, "mnuOptions", kScopeBoth),
    item("mnuOptionsSub", 3, "mnuOptions", "&Watch RAM Memory Level ", kNeedNothing, kScopeBoth),
    check("mnuSubMonitorRAM", 0, "mnuOptionsSub(3)", "Do Not Monitor"),
    check("mnuSubMonitorRAM", 1, "mnuOptionsSub(3)", "Monitor If Free RAM Below &10 MB"),
    check("mnuSubMonitorRAM", 2, "mnuOptionsSub(3)", "Monitor If Free RAM Below &20 MB"),
    check("mnuSubMonitorRAM", 3, "mnuOptionsSub(3)", "Monitor If Free RAM Below &30 MB"),
    check("mnuSubMonitorRAM", 4, "mnuOptionsSub(3)", "Monitor If Free RAM Below &40 MB"),
    check("mnuOptionsSub", 4, "mnuOptions", "Re&mind Color Setting If Not At 32-Bit"),
    line("mnuOptionsSub", 5, "mnuOptions", kScopeBoth),
    check("mnuOptionsSub", 6, "mnuOptions", "&Fit-In Even If Picutre Is Smaller When Fit In Set In View Mode"),
    line("mnuOptionsSub", 7, "mnuOptions", kScopeBoth),
    check("mnuOptionsSub", 8, "mnuOptions", "&Add Back EXIF (If Any) On Save JPG File"),
    line("mnuOptionsSub", 9, "mnuOptions", kScopeBoth),
    check("mnuOptionsSub", 10, "mnuOptions", "Show &Pixel RGB When Fill / Replace Color Tool Selected"),
    line("mnuOptionsSub", 11, "mnuOptions", kScopeBoth),
    item("mnuOptionsSub", 12, "mnuOptions", "&Options for Current Session Only", kNeedNothing, kScopeBoth),
    check("mnuOptionsSessionOnlySub", 0, "mnuOptionsSub(12)",
          "&Use Alternative Region Marquee  (i.e. If Entire Image Is Dark Greyish)"),
    check("mnuOptionsSessionOnlySub", 1, "mnuOptionsSub(12)", "Suspend &Canvas Resize by Edge Dragging"),
    check("mnuOptionsSessionOnlySub", 2, "mnuOptionsSub(12)", "Suspend &Region Resize by Edge Dragging"),
    check("mnuOptionsSessionOnlySub", 3, "mnuOptionsSub(12)", "&Turn On [X, Y] Axis Lines (If Applicable)"),

    // --- Windows, Help
    bar("mnuWindows", "&Windows", kScopeBoth),
    item("mnuWindowsSub", 0, "mnuWindows", "&Cascade", kNeedPicture, kScopeBoth),
    item("mnuWindowsSub", 1, "mnuWindows", "Tile &Horizontally", kNeedPicture, kScopeBoth),
    item("mnuWindowsSub", 2, "mnuWindows", "Tile &Vertically", kNeedPicture, kScopeBoth),
    bar("mnuHelp", "&Help", kScopeBoth),
    item("mnuHelpSub", 0, "mnuHelp", "&Help ....", kNeedNothing, kScopeBoth, "F1"),
    item("mnuHelpSub", 1, "mnuHelp", "&About ....", kNeedNothing, kScopeBoth),
};

MenuRow effectRow(const EffectItem& effect) {
  if (std::strcmp(effect.text, "-") == 0) return line(effect.control, effect.index, effect.parent, kScopeDocument);
  return item(effect.control, effect.index, effect.parent, effect.text, kNeedPicture, kScopeDocument);
}

// With the effects that hang under it, straight or under one another.
void addWithEffects(std::vector<MenuRow>& rows, const MenuRow& row) {
  rows.push_back(row);
  for (const EffectItem& effect : effectMenu()) {
    if (std::strcmp(effect.parent, row.control) == 0) addWithEffects(rows, effectRow(effect));
  }
}

std::vector<MenuRow> allRows() {
  std::vector<MenuRow> rows;
  for (const MenuRow& row : kRows) {
    if (row.index < 0) {
      addWithEffects(rows, row);
    } else {
      rows.push_back(row);
    }
  }
  return rows;
}

}  // namespace

std::span<const MenuRow> menuTable() {
  static const std::vector<MenuRow> kAll = allRows();
  return kAll;
}

}  // namespace ruvo
