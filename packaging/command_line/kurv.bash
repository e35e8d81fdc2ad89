# Completion of kurv for bash; written by packaging/command_line/generate.
_kurv() {
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}
  local command= choices= files= word
  local properties='ymin= ymax= xmax= xmin= NumTicks= Autoscale= Connected= DrawMarkers= QueryForSave= SortXY= Y_grid= X_grid= CurvesWidth= BorderWidth= AxisLabelFormatX= FontName= FontSize= FontBold= FontItalic= TitleFontName= TitleFontSize= TitleFontBold= TitleFontItalic= SubTitleFontName= SubTitleFontSize= SubTitleFontBold= SubTitleFontItalic= AxisLabelFormatY= Right_margine= Left_margine= Top_margine= Bottom_margine= MarkerSize= Title= SubTitle='
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $word in render|convert|info|eval|host) command=$word; break ;; esac
  done
  COMPREPLY=()
  case $command in
    render)
      case $before in
        -o|--output) files=1 ;;
        --limits) choices='round rule' ;;
        --set) choices=$properties; compopt -o nospace ;;
        --format) choices='png bmp svg pdf' ;;
        --header) choices='yes no units' ;;
        --size|--every|--title|--subtitle|--function|--derive|--x|--y|--locale|--scale|--sheet|--separator|--decimal|--thousands|--skip|--comment|--missing|--encoding|--dates) ;;
        *)
          if [[ $current == -* ]]; then choices='-h --help -o --output --size --every --sort --limits --title --subtitle --function --derive --lines --no-lines --markers --no-markers --set --x --y --locale --scale --format --sheet --separator --decimal --thousands --header --skip --comment --missing --encoding --dates'
          else choices='' files=1; fi ;;
      esac ;;
    convert)
      case $before in
        -o|--output) files=1 ;;
        --limits) choices='round rule' ;;
        --set) choices=$properties; compopt -o nospace ;;
        --header) choices='yes no units' ;;
        --size|--every|--title|--subtitle|--function|--derive|--x|--y|--locale|--sheet|--separator|--decimal|--thousands|--skip|--comment|--missing|--encoding|--dates) ;;
        *)
          if [[ $current == -* ]]; then choices='-h --help -o --output --size --every --sort --limits --title --subtitle --function --derive --lines --no-lines --markers --no-markers --set --x --y --locale --sheet --separator --decimal --thousands --header --skip --comment --missing --encoding --dates'
          else choices='' files=1; fi ;;
      esac ;;
    info)
      case $before in
        --header) choices='yes no units' ;;
        --x|--y|--locale|--sheet|--separator|--decimal|--thousands|--skip|--comment|--missing|--encoding|--dates) ;;
        *)
          if [[ $current == -* ]]; then choices='-h --help --x --y --locale --check --sheet --separator --decimal --thousands --header --skip --comment --missing --encoding --dates'
          else choices='' files=1; fi ;;
      esac ;;
    eval)
      case $before in
        *)
          if [[ $current == -* ]]; then choices='-h --help'
          else choices='' files=; fi ;;
      esac ;;
    host)
      case $before in
        *)
          if [[ $current == -* ]]; then choices='-h --help'
          else choices='' files=; fi ;;
      esac ;;
    *)
      case $before in
        --limits) choices='round rule' ;;
        --set) choices=$properties; compopt -o nospace ;;
        --header) choices='yes no units' ;;
        --size|--every|--title|--subtitle|--function|--derive|--x|--y|--locale|--sheet|--separator|--decimal|--thousands|--skip|--comment|--missing|--encoding|--dates) ;;
        *)
          if [[ $current == -* ]]; then choices='-h --help --version --follow --size --every --sort --limits --title --subtitle --function --derive --lines --no-lines --markers --no-markers --set --x --y --locale --sheet --separator --decimal --thousands --header --skip --comment --missing --encoding --dates'
          else choices='render convert info eval host' files=1; fi ;;
      esac ;;
  esac
  [[ $choices ]] && COMPREPLY=($(compgen -W "$choices" -- "$current"))
  [[ $files ]] && { compopt -o filenames; COMPREPLY+=($(compgen -f -- "$current")); }
  return 0
}
complete -F _kurv kurv
