#include "view/keydisplay.h"

namespace tq {

namespace {

constexpr double rows_per_octave = 12, white_keys_per_octave = 7;

double page_size(const KeyDisplay& kd, double zoom) {
    return rows_per_octave * static_cast<double>(kd.octavecount) * kd.blackkeyunit * zoom;
}

}  // namespace

double TQ_Prseq_Keydisplay_CalculateWhiteKeyBroadnessFromZoomValue(KeyDisplay& kd, double zoom) {
    kd.zoom = zoom;
    return kd.whitekeybroadness = kd.blackkeyunit * (rows_per_octave / white_keys_per_octave) * zoom;
}

double TQ_Prseq_Keydisplay_CalculateBlackKeyBroadnessFromZoomValue(KeyDisplay& kd, double zoom) {
    kd.zoom = zoom;
    return kd.blackkeybroadness = kd.blackkeyunit * zoom;
}

double TQ_Prseq_Keydisplay_CalculateActualZoomValueFromWhiteKeyBroadness(const KeyDisplay& kd,
                                                                         double broadness) {
    return static_cast<double>(kd.whitekeycount) * broadness * kd.zoomcoefficient;
}

double TQ_Prseq_Keydisplay_GetTotalPageSize(const KeyDisplay& kd) { return page_size(kd, kd.zoom); }
double TQ_Prseq_Keydisplay_GetTotalPageSizeMaximum(const KeyDisplay& kd) {
    return page_size(kd, kd.maximumzoom);
}
double TQ_Prseq_Keydisplay_GetSelectionPageSize(const KeyDisplay& kd) { return kd.rect.height; }

double TQ_Prseq_Keydisplay_CalculateMinimumZoomValue(KeyDisplay& kd, double height) {
    return kd.minimumzoom = height * kd.zoomcoefficient;
}

double TQ_Prseq_Keydisplay_CalculateMaximumZoomValue(KeyDisplay& kd, double height) {
    return kd.maximumzoom =
               rows_per_octave * static_cast<double>(kd.octavecount) * height * kd.zoomcoefficient;
}

double TQ_Prseq_Keydisplay_ConvertToActualScrollValueFromUnityScrollValue(KeyDisplay& kd, double unity) {
    double key = TQ_Prseq_Keydisplay_CalculateWhiteKeyBroadnessFromZoomValue(kd, kd.zoom);
    kd.totalpagesize = static_cast<double>(kd.whitekeycount) * key;
    return kd.scroll = unity * (kd.totalpagesize - kd.rect.height);
}

double TQ_Prseq_Keydisplay_ConvertToUnityScrollValueFromActualScrollValue(const KeyDisplay& kd) {
    double room = kd.totalpagesize - kd.rect.height;
    return room == 0 ? 0 : kd.scroll / room;
}

}  // namespace tq
