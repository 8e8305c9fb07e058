# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT

# CPack runs this over what it is about to pack.

# Whatever the umask of who builds it.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY} DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# As Debian strips its programs; CPack leaves the compiler's signature in.
file(GLOB programs
    ${CPACK_TEMPORARY_DIRECTORY}/usr/bin/* ${CPACK_TEMPORARY_DIRECTORY}/usr/libexec/tovarin/*)
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${programs}
    COMMAND_ERROR_IS_FATAL ANY)
