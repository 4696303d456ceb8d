# What Debian wants of a package besides the installed files; run by CPack where these are gathered.
cmake_minimum_required(VERSION 3.25)

set(share ${CPACK_TEMPORARY_DIRECTORY}/usr/share)
file(STRINGS ${share}/doc/varnow/CHANGELOG.md headings REGEX "^## [0-9.]+ \\(")
foreach(heading IN LISTS headings)
  string(REGEX MATCH "^## ([0-9.]+) \\(([0-9-]+)\\)$" matched "${heading}")
  execute_process(COMMAND date --utc --rfc-email --date=${CMAKE_MATCH_2} OUTPUT_VARIABLE date
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  string(APPEND changelog "varnow (${CMAKE_MATCH_1}) stable; urgency=medium\n\n"
    "  * What changed stands in CHANGELOG.md.\n\n -- ${CPACK_PACKAGE_CONTACT}  ${date}\n\n")
endforeach()
file(WRITE ${share}/doc/varnow/changelog "${changelog}")
execute_process(COMMAND gzip -9n ${share}/doc/varnow/changelog ${share}/man/man1/varnow.1 COMMAND_ERROR_IS_FATAL ANY)
