autocmd BufNewFile,BufRead *.scrim setfiletype scrim
