#pragma once

/// Classes of snapshots, as the server numbers them.
namespace SnapClass {

enum Value : int { Pedestrian = 2, Vehicle = 4 };

} // namespace SnapClass
