# A room is one static library in the folder of its name. Its headers are reached as "room/Header.h", and only by
# targets that link it: the include path of a room holds that one room and nothing else.

add_library(trx_options INTERFACE)
target_compile_options(trx_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(TRX_WERROR)
  target_compile_options(trx_options INTERFACE -Werror)
endif()
if(TRX_SANITIZE)
  target_compile_options(trx_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer)
  target_link_options(trx_options INTERFACE -fsanitize=address,undefined)
endif()
if(TRX_FUZZ)
  target_compile_options(trx_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                               -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(trx_options INTERFACE -fsanitize=address,undefined)
endif()
if(NOT TRX_SANITIZE AND NOT TRX_FUZZ)
  # As Debian hardens its packages: a slip that these notice ends the program before it does harm.
  target_compile_options(trx_options INTERFACE -fstack-protector-strong
    "$<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
  target_link_options(trx_options INTERFACE -Wl,-z,relro,-z,now)
endif()
target_compile_definitions(trx_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
                                                 QT_USE_QSTRINGBUILDER)

# add_room(NAME SOURCES file... LINKS target...). With TRX_UNITY, as for ./run and ./test, some sources of a room are
# compiled as one, which halves the time of a build from scratch. Names in their anonymous namespaces have to differ then,
# and only builds without it, as the preset dev, notice a missing include.
function(add_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
  add_library(trx_${name} STATIC ${ROOM_SOURCES})
  set(include_dir ${CMAKE_BINARY_DIR}/rooms/${name})
  file(MAKE_DIRECTORY ${include_dir})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${include_dir}/${name} SYMBOLIC)
  target_include_directories(trx_${name} PUBLIC ${include_dir})
  target_link_libraries(trx_${name} PUBLIC ${ROOM_LINKS} PRIVATE trx_options)
  set_target_properties(trx_${name} PROPERTIES UNITY_BUILD ${TRX_UNITY} UNITY_BUILD_BATCH_SIZE 8)
  if(NOT "${ROOM_LINKS}" MATCHES "Qt6::Widgets|trx_widgets")
    set_target_properties(trx_${name} PROPERTIES AUTOMOC OFF)  # only windows have classes of signals and slots
  endif()
endfunction()

# read_options_in(FILE): the source that reads the options of a program. The parser is all in headers, and would take long
# to optimise for a work of milliseconds.
function(read_options_in file)
  set_source_files_properties(${file} PROPERTIES COMPILE_OPTIONS "-O1;-g0")
endfunction()
