// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "Bad.h"
#include "ui/Screen.h"
