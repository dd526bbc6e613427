#!/usr/bin/env tclsh
# list-flows.tcl BOARD: prints the synthesis command of each compile flow.

if {$argc != 1} {
    puts stderr "usage: list-flows.tcl BOARD"
    exit 2
}

# One process reads the whole board. If it fails, the result is its error message.
if {[catch {exec vemo-boardspec-dump --format=tcl [lindex $argv 0]} assignments]} {
    puts stderr $assignments
    exit 1
}
eval $assignments

for {set i 0} {$i < $vemo_num_flows} {incr i} {
    puts "[set vemo_flow_${i}_name]: [set vemo_flow_${i}_synthesize_cmd]"
}
