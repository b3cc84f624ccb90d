" Settings for decks: blanks in place of tabs, tabs shown, a mark at the column behind the last one that is read.
if exists('b:did_ftplugin')
  finish
endif
let b:did_ftplugin = 1

setlocal expandtab
setlocal list listchars=tab:>-
setlocal colorcolumn=81
setlocal comments=:* commentstring=*\ %s
setlocal textwidth=0
let b:undo_ftplugin = 'setlocal expandtab< list< listchars< colorcolumn< comments< commentstring< textwidth<'
