// The keys and buttons that are held while something happens: bits of one number.
#pragma once

namespace tq {

enum Modifier : unsigned {
    modifier_command = 1,
    modifier_shift = 2,
    modifier_control = 4,
    modifier_option = 8,
    modifier_left_button = 16,
    modifier_right_button = 32
};

}  // namespace tq
