# What makes the program one file with an icon, a version record and a manifest, and the folder that
# it runs from: the program with its data, as in a portable folder.
set(generated ${CMAKE_CURRENT_BINARY_DIR}/windows)
file(MAKE_DIRECTORY ${generated})

set_target_properties(tarnwell PROPERTIES WIN32_EXECUTABLE ON
  RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tarnwell)
target_link_options(tarnwell PRIVATE -static)

# The program's icon in the sizes that the shell asks for.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(CONVERT convert REQUIRED)
set(drawing ${CMAKE_CURRENT_SOURCE_DIR}/data/icons/tarnwell.svg)
set(sizes)
set(pictures)
foreach(size 16 20 24 32 40 48 64 128 256)
  set(picture ${generated}/tarnwell-${size}.png)
  add_custom_command(OUTPUT ${picture}
    COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${picture} ${drawing}
    DEPENDS ${drawing} VERBATIM)
  list(APPEND pictures ${picture})
endforeach()
add_custom_command(OUTPUT ${generated}/tarnwell.ico
  COMMAND ${CONVERT} ${pictures} ${generated}/tarnwell.ico
  DEPENDS ${pictures} VERBATIM)

enable_language(RC)
configure_file(packaging/windows/tarnwell.rc.in ${generated}/tarnwell.rc @ONLY)
configure_file(packaging/windows/tarnwell.manifest.in ${generated}/tarnwell.manifest @ONLY)
set_source_files_properties(${generated}/tarnwell.rc PROPERTIES
  OBJECT_DEPENDS "${generated}/tarnwell.ico;${generated}/tarnwell.manifest")
target_sources(tarnwell PRIVATE ${generated}/tarnwell.rc)

# Pictures are drawn here, since the toolkit that the program is built with reads no drawings: in the
# sizes that windows ask for, and twice these for dense displays.
set(data ${CMAKE_BINARY_DIR}/tarnwell/data)
file(MAKE_DIRECTORY ${data}/icons)
file(GLOB drawings CONFIGURE_DEPENDS data/icons/*.svg)
set(drawn)
foreach(drawing IN LISTS drawings)
  get_filename_component(name ${drawing} NAME_WE)
  set(commands)
  foreach(size 16 24 32 48 64 128)
    list(APPEND commands COMMAND ${RSVG_CONVERT} --width ${size} --height ${size}
      --output ${data}/icons/${name}-${size}.png ${drawing})
  endforeach()
  add_custom_command(OUTPUT ${data}/icons/${name}-16.png ${commands} DEPENDS ${drawing} VERBATIM)
  list(APPEND drawn ${data}/icons/${name}-16.png)
endforeach()
add_custom_target(tarnwell_data ALL
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_CURRENT_SOURCE_DIR}/data/skins ${data}/skins
  # By these the folder is one that the program may keep its own files in.
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_CURRENT_SOURCE_DIR}/data/skins
    ${CMAKE_BINARY_DIR}/tarnwell/skins
  COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_CURRENT_SOURCE_DIR}/data/ring6full.gif
    ${CMAKE_CURRENT_SOURCE_DIR}/data/TIPOFDAY.TXT ${data}
  DEPENDS ${drawn} VERBATIM)
add_dependencies(tarnwell tarnwell_data)
