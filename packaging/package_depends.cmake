# Run by CPack between staging and packing: the libraries of the staged programs as Depends, what
# the web module needs beyond them as Recommends.
set(root ${CPACK_TEMPORARY_DIRECTORY})
file(GLOB programs ${root}/usr/bin/* ${root}/usr/libexec/*/KW*)
file(GLOB modules ${root}/usr/libexec/*/*.so)

set(files -dDepends)
foreach(program IN LISTS programs)
  file(READ ${program} magic LIMIT 4 HEX)
  if(magic STREQUAL "7f454c46" AND NOT IS_SYMLINK ${program})
    list(APPEND files -e${program})
  endif()
endforeach()
foreach(module IN LISTS modules)
  list(APPEND files -dRecommends -e${module})
endforeach()

# dpkg-shlibdeps wants a source package around it.
set(work ${CPACK_TOPLEVEL_DIRECTORY}/shlibdeps)
file(WRITE ${work}/debian/control "Source: ${CPACK_PACKAGE_NAME}\nPackage: ${CPACK_PACKAGE_NAME}\n")
execute_process(COMMAND dpkg-shlibdeps -O ${files} WORKING_DIRECTORY ${work}
  OUTPUT_VARIABLE found COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCH "shlibs:Depends=([^\n]+)" line "${found}")
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${CMAKE_MATCH_1}")
if(found MATCHES "shlibs:Recommends=([^\n]+)")
  string(APPEND CPACK_DEBIAN_PACKAGE_RECOMMENDS ", ${CMAKE_MATCH_1}")
endif()
