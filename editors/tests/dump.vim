" Writes, for each line of the deck, the name of the syntax item of every byte: NAME*COUNT, separated by blanks; - where there is none.
" Arguments by g:deck and g:out.
set nocompatible nomore noswapfile viminfo=
execute 'set runtimepath^=' . fnameescape(g:syntax)
filetype plugin on
syntax on
execute 'edit ' . fnameescape(g:deck)
let lines = []
for at in range(1, line('$'))
  let found = []
  let last = ''
  let run = 0
  for column in range(1, col([at, '$']) - 1)
    let name = synIDattr(synID(at, column, 1), 'name')
    let name = name ==# '' ? '-' : substitute(name, '^korvat', '', '')
    if name ==# last
      let run += 1
    else
      if run > 0
        call add(found, last . '*' . run)
      endif
      let last = name
      let run = 1
    endif
  endfor
  if run > 0
    call add(found, last . '*' . run)
  endif
  call add(lines, join(found, ' '))
endfor
call add(lines, 'filetype ' . &filetype . ' colorcolumn ' . &colorcolumn . ' expandtab ' . &expandtab . ' list ' . &list)
call writefile(lines, g:out)
qall!
