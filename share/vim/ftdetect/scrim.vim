autocmd BufNewFile,BufRead *.scrim setfiletype scrim
autocmd BufNewFile,BufRead *.sketch setfiletype scrimsketch
