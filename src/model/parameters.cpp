#include "model/parameters.h"

#include <algorithm>

#include "instance/geometry.h"
#include "instance/symbols.h"
#include "instance/utilities.h"

namespace tq {

namespace {

constexpr double largest_velocity = 127;

ParameterValue default_value(ParameterType& type) { return {&type, type.default_}; }

}  // namespace

ParameterTypeRef TQ_Prseq_Parameters_MakeParameterType(Symbol name, double minimum, double maximum,
                                                       double default_, long steps) {
    ParameterTypeRef type = make_ref<ParameterType>();
    type->name = name;
    type->minimum = minimum;
    type->maximum = maximum;
    type->default_ = default_;
    type->steps = steps;
    return type;
}

ParameterType* TQ_Prseq_Parameters_AddParameterTypeToTrack(Track& track, Symbol name, double minimum,
                                                           double maximum, double default_, long steps) {
    if (TQ_Prseq_Parameters_GetDictionaryFromName(track, name)) return nullptr;
    ParameterTypeRef type = TQ_Prseq_Parameters_MakeParameterType(name, minimum, maximum, default_, steps);
    track.parametertypes.push_back(type);
    TQ_Prseq_Parameters_AddParameterTypeToAllEventsOnTrack(track, *type);
    return type.get();
}

ParameterType* TQ_Prseq_Parameters_AddMissingParameterTypeToTrack(Track& track, const ParameterValue& value) {
    const ParameterType& type = *value.type;
    return TQ_Prseq_Parameters_AddParameterTypeToTrack(track, type.name, type.minimum, type.maximum,
                                                       type.default_, type.steps);
}

void TQ_Prseq_Parameters_AddParameterTypeToAllEventsOnTrack(const Track& track, ParameterType& type) {
    track.events.for_each([&](Event& event) { event.parametervalues.push_back(default_value(type)); });
}

ParameterType* TQ_Prseq_Parameters_GetDictionaryAtIndex(const Track& track, long index) {
    bool exists = index >= 0 && index < static_cast<long>(track.parametertypes.size());
    return exists ? track.parametertypes[static_cast<size_t>(index)].get() : nullptr;
}

ParameterType* TQ_Prseq_Parameters_GetDictionaryFromName(const Track& track, Symbol name) {
    for (const ParameterTypeRef& type : track.parametertypes)
        if (type->name == name) return type.get();
    return nullptr;
}

ParameterTypeRef TQ_Prseq_Parameters_CopyDictionary(const ParameterType& type) {
    ParameterTypeRef copy = TQ_Prseq_Parameters_MakeParameterType(type.name, type.minimum, type.maximum,
                                                                  type.default_, type.steps);
    copy->id = type.id;
    return copy;
}

void set_parameter_type(Track& track, ParameterType& type, const ParameterType& values) {
    if (track.displayedparameter == type.name) track.displayedparameter = values.name;
    type.name = values.name;
    type.minimum = values.minimum;
    type.maximum = values.maximum;
    type.default_ = values.default_;
    type.steps = values.steps;
    type.id = values.id;
}

bool same_parameter_type(const ParameterType& a, const ParameterType& b) {
    return a.name == b.name && a.minimum == b.minimum && a.maximum == b.maximum && a.default_ == b.default_ &&
           a.steps == b.steps;
}

void TQ_Prseq_Parameters_AddExistingParameterTypesToEvent(const Track& track, Event& event) {
    for (const ParameterTypeRef& type : track.parametertypes)
        event.parametervalues.push_back(default_value(*type));
}

long TQ_Prseq_Parameters_GetEventParameterIndexFromName(const Event& event, Symbol name) {
    for (size_t i = 0; i < event.parametervalues.size(); ++i)
        if (event.parametervalues[i].name() == name) return static_cast<long>(i);
    return -1;
}

ParameterValue* TQ_Prseq_Parameters_GetEventParameterFromName(Event& event, Symbol name) {
    long index = TQ_Prseq_Parameters_GetEventParameterIndexFromName(event, name);
    return index < 0 ? nullptr : &event.parametervalues[static_cast<size_t>(index)];
}

const ParameterValue* TQ_Prseq_Parameters_GetEventParameterFromName(const Event& event, Symbol name) {
    long index = TQ_Prseq_Parameters_GetEventParameterIndexFromName(event, name);
    return index < 0 ? nullptr : &event.parametervalues[static_cast<size_t>(index)];
}

double TQ_Prseq_Parameters_GetEventParameterValueFromName(const Event& event, Symbol name) {
    const ParameterValue* value = TQ_Prseq_Parameters_GetEventParameterFromName(event, name);
    return value ? value->value : 0;
}

void TQ_Prseq_Parameters_SetEventParameterValue(Event& event, Symbol name, double value) {
    if (ParameterValue* found = TQ_Prseq_Parameters_GetEventParameterFromName(event, name))
        found->value = value;
}

void set_event_value(Event& event, Symbol parameter, double value) {
    if (parameter == tq_sym_Velocity)
        event.velocity = value;
    else
        TQ_Prseq_Parameters_SetEventParameterValue(event, parameter, value);
}

double event_value(const Event& event, Symbol parameter) {
    return parameter == tq_sym_Velocity
               ? event.velocity
               : TQ_Prseq_Parameters_GetEventParameterValueFromName(event, parameter);
}

double ParameterRange::unity(double value) const {
    return minimum == maximum ? 0 : scale(value, minimum, maximum, 0, 1);
}

std::optional<ParameterRange> parameter_range(const Track& track, Symbol parameter) {
    if (parameter == tq_sym_Velocity) return ParameterRange{0, largest_velocity, 0};
    const ParameterType* type = TQ_Prseq_Parameters_GetDictionaryFromName(track, parameter);
    return type ? std::optional(ParameterRange{type->minimum, type->maximum, type->steps}) : std::nullopt;
}

double TQ_Prseq_Parameters_SetEventParameterValueFromUnity(const Track& track, Event& event, Symbol name,
                                                           double unity) {
    const ParameterType* type = TQ_Prseq_Parameters_GetDictionaryFromName(track, name);
    if (!type) return 0;
    double value = scale(unity, 0, 1, type->minimum, type->maximum);
    TQ_Prseq_Parameters_SetEventParameterValue(event, name, value);
    return value;
}

double TQ_Prseq_Parameters_CalculateEventParameterValue(const Track& track, Event& event, double unity) {
    if (track.displayedparameter == tq_sym_Velocity) return event.velocity = unity * largest_velocity;
    const ParameterType* type = TQ_Prseq_Parameters_GetDictionaryFromName(track, track.displayedparameter);
    double rounded = TQ_Utilities_RoundValueWithSteps(unity, 1, type ? type->steps : 0);
    return TQ_Prseq_Parameters_SetEventParameterValueFromUnity(track, event, track.displayedparameter,
                                                               rounded);
}

}  // namespace tq
