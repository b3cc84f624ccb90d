" Decks are KORVAT.INP, in any case of letters; the program itself wants capitals.
autocmd BufNewFile,BufRead KORVAT.INP,korvat.inp,Korvat.inp setfiletype korvat
