// Marks what libzephyl shows to the programs that link it; everything else is hidden.

#pragma once

#define ZP_EXPORT __attribute__((visibility("default")))
