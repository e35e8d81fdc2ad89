#!/bin/sh
# A picture from a shell script: one request a line.
. "$(dirname "$0")/../find_kurv.sh"
find_kurv "$1"
"$kurv" host <<'REQUESTS'
{"call":"scatter_graph","args":[[[1,4,9,16]],[1,2,3,4],4,1,"Squares","x",["y"],0,[],true,true]}
{"set":"SubTitle","to":"from a shell script"}
{"call":"ChartOptions","args":["refresh"]}
{"picture":"squares.png"}
REQUESTS
