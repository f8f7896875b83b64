#pragma once

#include <QtCore/QList>

/// The classes of snapshots that the host knows: what a camera tells about a vehicle or a person.
namespace SnapClasses {

/// Class of a snapshot as the statistics service numbers them.
enum SnapType : int { Pedestrian = 2, Vehicle = 4 };

enum MajorType : int {
    VehicleColour = 401,
    VehicleKind = 402,
    VehicleDirection = 403,
    PedestrianAge = 201,
    PedestrianUpperColour = 202,
    PedestrianBag = 203,
    PedestrianDirection = 204
};

/// A major type with the text keys of its minor types, which are numbered from 1.
struct Major
{
    int snapType;
    int type;
    const char *key;
    QList<const char *> minorKeys;
};

inline const QList<Major> &majors()
{
    static const QList<Major> table = {
        {Vehicle, VehicleColour, "TK_SnapVehicleColour",
            {"TK_SnapColourWhite", "TK_SnapColourBlack", "TK_SnapColourSilver", "TK_SnapColourRed",
                "TK_SnapColourBlue", "TK_SnapColourYellow", "TK_SnapColourGreen", "TK_SnapColourBrown"}},
        {Vehicle, VehicleKind, "TK_SnapVehicleKind",
            {"TK_SnapKindCar", "TK_SnapKindVan", "TK_SnapKindLorry", "TK_SnapKindBus",
                "TK_SnapKindMotorcycle", "TK_SnapKindBicycle"}},
        {Vehicle, VehicleDirection, "TK_SnapDirection", {"TK_SnapDirectionIn", "TK_SnapDirectionOut"}},
        {Pedestrian, PedestrianAge, "TK_SnapAge",
            {"TK_SnapAgeChild", "TK_SnapAgeYouth", "TK_SnapAgeAdult", "TK_SnapAgeSenior"}},
        {Pedestrian, PedestrianUpperColour, "TK_SnapUpperColour",
            {"TK_SnapColourWhite", "TK_SnapColourBlack", "TK_SnapColourGrey", "TK_SnapColourRed",
                "TK_SnapColourBlue", "TK_SnapColourYellow", "TK_SnapColourGreen"}},
        {Pedestrian, PedestrianBag, "TK_SnapBag",
            {"TK_SnapBagNone", "TK_SnapBagHandbag", "TK_SnapBagBackpack", "TK_SnapBagSuitcase"}},
        {Pedestrian, PedestrianDirection, "TK_SnapDirection", {"TK_SnapDirectionIn", "TK_SnapDirectionOut"}},
    };
    return table;
}

} // namespace SnapClasses
