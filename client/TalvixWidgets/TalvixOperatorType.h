#pragma once

/// What happened to an entry of the client's lists.
enum class TalvixOperatorType : int { Add = 1, Modify = 2, Delete = 3 };
