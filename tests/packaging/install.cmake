# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT

# Installs the build BUILD below FOLDER, which then holds nothing else.
file(REMOVE_RECURSE ${FOLDER})
set(ENV{DESTDIR} ${FOLDER})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
