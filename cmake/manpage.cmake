# Writes the manual page ormelix.1 from what the command itself says: ormelix
# --version, ormelix --help and ormelix COMMAND --help for each command the help
# lists, so that the page never tells another story than the program.
#
#   cmake -DTOOL=path/to/ormelix -DOUTPUT=ormelix.1 [-DGZIP=gzip] -P manpage.cmake
#
# The texts are laid out for a terminal already, so they stand unfilled; roff's
# own characters are escaped (a backslash, a hyphen, a dot or quote opening a
# line). With GZIP, OUTPUT.gz is written beside it, as Debian installs pages.

function(run_tool out)
  execute_process(COMMAND ${TOOL} ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE text ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "ormelix ${ARGN} failed (${rc}): ${err}")
  endif()
  set(${out} "${text}" PARENT_SCOPE)
endfunction()

# The text as roff lines that keep their layout.
function(unfilled out text)
  string(REPLACE "\\" "\\e" text "${text}")
  string(REPLACE "-" "\\-" text "${text}")
  string(REGEX REPLACE "\n+$" "" text "\n${text}")
  string(REGEX REPLACE "\n([.'])" "\n\\\\&\\1" text "${text}")
  set(${out} ".nf${text}\n.fi\n" PARENT_SCOPE)
endfunction()

run_tool(version --version)
string(REGEX MATCH "[0-9][0-9.]*" number "${version}")
run_tool(usage --help)

# The commands are the words at the start of the lines below "commands:".
string(REGEX MATCH "\ncommands:\n(  [^\n]*\n)+" listed "${usage}")
string(REGEX MATCHALL "\n  [a-z0-9]+ " words "${listed}")
set(commands "")
foreach(word ${words})
  string(STRIP "${word}" word)
  list(APPEND commands ${word})
endforeach()
if(NOT commands)
  message(FATAL_ERROR "ormelix --help lists no commands")
endif()

# SOURCE_DATE_EPOCH, where set, gives the date, so that a build can be repeated.
string(TIMESTAMP date "%Y-%m-%d" UTC)
set(page ".\\\" -*- coding: UTF-8 -*-\n")
string(APPEND page ".\\\" Written by the build from ormelix --help and ormelix COMMAND --help; edit those.\n")
string(APPEND page ".TH ORMELIX 1 \"${date}\" \"OrmelixCore ${number}\" \"User Commands\"\n")
string(APPEND page ".SH NAME\normelix \\- make, show, copy, export, import, back up and check the stores of the OrmelixCore payroll library\n")
string(APPEND page ".SH SYNOPSIS\n.B ormelix\n.I COMMAND\n.RI [ ARGS ]\n.br\n.B ormelix\n.I COMMAND\n.B \\-\\-help\n")
string(APPEND page ".br\n.B ormelix \\-\\-help\n.br\n.B ormelix \\-\\-version\n")
unfilled(text "${usage}")
string(APPEND page ".SH DESCRIPTION\n${text}")
string(APPEND page ".SH COMMANDS\n")
foreach(command ${commands})
  run_tool(help ${command} --help)
  unfilled(text "${help}")
  string(APPEND page ".SS ${command}\n${text}")
endforeach()
string(APPEND page ".SH SEE ALSO\n.BR sqlite3 (1),\n.BR pg_dump (1)\n")

file(WRITE ${OUTPUT} "${page}")
if(GZIP)
  execute_process(COMMAND ${GZIP} -9 -n -c ${OUTPUT} OUTPUT_FILE ${OUTPUT}.gz RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "gzip of ${OUTPUT} failed: ${rc}")
  endif()
endif()
