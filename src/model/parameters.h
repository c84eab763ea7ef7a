// Parameter types on tracks, and the values that events have of them.
#pragma once

#include "instance/track.h"

namespace tq {

ParameterTypeRef TQ_Prseq_Parameters_MakeParameterType(Symbol name, double minimum, double maximum,
                                                       double default_, long steps);
/// The new type, or none when the track has a type of that name. Every event of the track gets a value for
/// it.
ParameterType* TQ_Prseq_Parameters_AddParameterTypeToTrack(Track& track, Symbol name, double minimum,
                                                           double maximum, double default_, long steps);
/// The same with what an event from elsewhere says of its parameter.
ParameterType* TQ_Prseq_Parameters_AddMissingParameterTypeToTrack(Track& track, const ParameterValue& value);
void TQ_Prseq_Parameters_AddParameterTypeToAllEventsOnTrack(const Track& track, ParameterType& type);
ParameterType* TQ_Prseq_Parameters_GetDictionaryAtIndex(const Track& track, long index);
ParameterType* TQ_Prseq_Parameters_GetDictionaryFromName(const Track& track, Symbol name);
ParameterTypeRef TQ_Prseq_Parameters_CopyDictionary(const ParameterType& type);
/// All that a type of the track says, from another. What is displayed stays so, whatever its name.
void set_parameter_type(Track& track, ParameterType& type, const ParameterType& values);
/// Whether two types have one name and the same values.
bool same_parameter_type(const ParameterType& a, const ParameterType& b);

/// Appends a value for each of the track's types, at its default.
void TQ_Prseq_Parameters_AddExistingParameterTypesToEvent(const Track& track, Event& event);
/// −1 when the event has no such value.
long TQ_Prseq_Parameters_GetEventParameterIndexFromName(const Event& event, Symbol name);
ParameterValue* TQ_Prseq_Parameters_GetEventParameterFromName(Event& event, Symbol name);
const ParameterValue* TQ_Prseq_Parameters_GetEventParameterFromName(const Event& event, Symbol name);
/// 0 when the event has no such value.
double TQ_Prseq_Parameters_GetEventParameterValueFromName(const Event& event, Symbol name);
/// Not held in the type's range.
void TQ_Prseq_Parameters_SetEventParameterValue(Event& event, Symbol name, double value);
/// The event's value of a parameter; "Velocity" is its velocity.
void set_event_value(Event& event, Symbol parameter, double value);
/// The same value, also of "Velocity".
double event_value(const Event& event, Symbol parameter);
/// What a track says of a parameter, with "Velocity" from 0 to 127; none when it has no such type.
struct ParameterRange {
    double minimum, maximum;
    long steps;
    /// 0 at the minimum, 1 at the maximum; 0 for everything when the range is empty.
    double unity(double value) const;
};
std::optional<ParameterRange> parameter_range(const Track& track, Symbol parameter);
/// Sets the value for a unity value of the track's type and returns it; 0 when the track has no such type.
double TQ_Prseq_Parameters_SetEventParameterValueFromUnity(const Track& track, Event& event, Symbol name,
                                                           double unity);
/// Sets the value that the parameter display shows from the pointer's height there, 0 to 1, rounded to the
/// type's steps; returns it. The velocity is not rounded.
double TQ_Prseq_Parameters_CalculateEventParameterValue(const Track& track, Event& event, double unity);

}  // namespace tq
