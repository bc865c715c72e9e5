# End-to-end runs of the quillon program: output, exit statuses and the standard-input batch.
function(expect name expected_status expected_out)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT status EQUAL expected_status OR NOT out STREQUAL expected_out)
    message(SEND_ERROR "${name}: status ${status} (wanted ${expected_status})\n"
                       "stdout: [${out}]\nwanted: [${expected_out}]\nstderr: [${err}]")
  endif()
  set(last_err "${err}" PARENT_SCOPE)
endfunction()

expect("raw and spaced" 0 "a - b - c\na - (b - c)\n" ${CLI} --raw --spaced "(a-b)-c" "a-(b-c)")
expect("evaluated sum" 0 "-3+x+x*y\n" ${CLI} "x + x*y - 3")
expect("syntax error" 1 "1\n" ${CLI} --raw "1" "2 3")
if(NOT last_err STREQUAL "syntax error: missing operator between parts of expression\n")
  message(SEND_ERROR "error message on stderr: [${last_err}]")
endif()
expect("unknown option" 2 "" ${CLI} --bogus)
expect("declared matrix" 1 "m(1,2)\n" ${CLI} --raw --matrix m "m(1,2)" "m(1)")
execute_process(COMMAND ${CLI} --help RESULT_VARIABLE status OUTPUT_VARIABLE out)
if(NOT status EQUAL 0 OR NOT out MATCHES "--series A,B")
  message(SEND_ERROR "help: status ${status}, text [${out}]")
endif()

file(WRITE ${WORK_DIR}/batch.txt "1+2\n\n(1\nlog(x(-1))\n")
expect("batch from a pipe" 1 "3\nlog(x(-1))\n" ${CLI} - INPUT_FILE ${WORK_DIR}/batch.txt)

# Numeric mode: a point, a table with a list giving two columns, the prepared form, a missing value.
expect("numeric at a point" 0 "14\n2,5\n" ${CLI} --at x=2,y=3 "x*y/x + y^2 + x" "{x, x + y}")
file(WRITE ${WORK_DIR}/rows.csv "x,y\n1,2\n3,4\n")
expect("numeric over a table" 0 "2,3,4\n12,7,16\n" ${CLI} --csv ${WORK_DIR}/rows.csv "x*y" "{x + y, y^2}")
expect("prepared form" 0 "@sublist({#S0+#S1},#T0^2+log(#T0))\n#S0 = a\n#S1 = b\n" ${CLI} --subexpr "(a+b)^2 + log(a+b)")
expect("missing value" 1 "" ${CLI} --at x=1 "x + y")
if(NOT last_err STREQUAL "no value for y in x + y\n")
  message(SEND_ERROR "missing value message: [${last_err}]")
endif()

# @normalize of a lag form it cannot write out would never end: refused before evaluation.
expect("endless normalize refused" 1 "y:=e+y(-1)\n" ${CLI} "@normalize(d(y) := e, y)" "@normalize(@movsum(x, k) := y, x)")
if(NOT last_err MATCHES "^refused: @normalize would never end on @movsum\\(x,k\\)")
  message(SEND_ERROR "endless normalize message: [${last_err}]")
endif()
