// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT
