// The three windows in which the document, the active track and the selected event are edited.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <unordered_map>

#include "host/patcher.h"
#include "instance/event.h"
#include "instance/track.h"

namespace tq {

enum class InspectorKind { Document, Track, Event };
inline constexpr size_t inspector_count = 3;

struct Inspector {
    std::unique_ptr<Patcher> patcher;           ///< none while it is closed
    std::unordered_map<Symbol, Field*> fields;  ///< by scripting name; those that the patcher has
    std::optional<Point> position;              ///< where the user has closed its window, on the screen
    long page = 0;                              ///< of its selector
    Ref<Track> track;                           ///< what its fields show
    EventRef event;

    bool open() const { return patcher != nullptr; }
};

struct Inspectors {
    std::array<Inspector, inspector_count> all;
    bool refreshing = false;  ///< the fields will be written soon

    Inspector& operator[](InspectorKind kind) { return all[static_cast<size_t>(kind)]; }
    const Inspector& operator[](InspectorKind kind) const { return all[static_cast<size_t>(kind)]; }
};

}  // namespace tq
