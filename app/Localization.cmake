# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
tovarin_library(
    NAME tovarin_localization
    SOURCES app/LocalizationManager.cpp app/LocalizationManager.h
    PUBLIC tovarin_platform Qt6::Core
)
